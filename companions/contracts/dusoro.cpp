#include "companions/contracts/dusoro.h"

#include "automation/interface_builder.h"

namespace mavrin2 {
namespace automation {

template <>
const InterfaceDescription& DescriptionOf<contracts::IDusoro2>() {
    using I = contracts::IDusoro2;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IDusoro2", "Reads and writes sound files", &contracts::DusoroLibrary)
            .Method<&I::OpenSoundFile>(1, "OpenSoundFile", "Opens a sound file for reading",
                                       In("fileName"), In("formatType"), In("flag"))
            .Method<&I::CloseFile>(2, "CloseFile",
                                   "Closes the input file or completes the output file")
            .Method<&I::CreateSoundFile>(3, "CreateSoundFile", "Starts an output file",
                                         In("fileName"), In("formatType"))
            .Method<&I::WriteBlock>(4, "WriteBlock", "Appends interleaved 16-bit samples",
                                    In("samples").ArrayOf(VT_I2))
            .Method<&I::ReadBlock>(5, "ReadBlock", "The next sample frames, none at the end",
                                   In("count"), Result("samples").ArrayOf(VT_I2))
            .Reserved(2)
            .Method<&I::SetPcmFormat>(8, "SetPcmFormat",
                                      "Rate in hertz and channels of the samples that pass",
                                      In("frequency"), In("channels"))
            .Reserved(2)
            .Method<&I::SetFormatPCM>(11, "SetFormatPCM", "PCM for the next output",
                                      In("frequency"), In("channels"), In("bitsPerSample"))
            .Reserved(5)
            .Method<&I::SetFormatVOX>(17, "SetFormatVOX",
                                      "Headerless 4-bit ADPCM for the next output", In("frequency"))
            .Reserved(9)
            .Method<&I::GetLength>(27, "GetLength", "Length in sample frames", Result("frames"))
            .Method<&I::GetSourceFrequency>(28, "GetSourceFrequency",
                                            "Rate of the file itself in hertz", Result("frequency"))
            .Method<&I::GetFormatText>(29, "GetFormatText", "Readable description of the format",
                                       Result("text"))
            .Method<&I::GetBitsPerSample>(30, "GetBitsPerSample", "Bits of one sample in the file",
                                          Result("bits"))
            .Method<&I::GetErrorCode>(31, "GetErrorCode",
                                      "ErrorConstants value of the last operation", Result("code"))
            .Method<&I::GetChannels>(32, "GetChannels", "Channels of the samples read, 1 or 2",
                                     Result("channels"))
            .Method<&I::GetFrequency>(33, "GetFrequency",
                                      "Rate of the samples read or of the output file in hertz",
                                      Result("frequency"))
            .Method<&I::GetFormatKind>(34, "GetFormatKind", "1 for plain PCM", Result("kind"))
            .Method<&I::SetWmaMode>(35, "SetWmaMode", "1 before a file of that kind", In("on"))
            .Build();
    return description;
}

}  // namespace automation

namespace contracts {

const automation::LibraryDescription& DusoroLibrary() {
    static const automation::LibraryDescription library{
        "KovDUSORO2Lib",
        LIBID_KovDusoro2,
        2,
        0,
        "KovDusoro 2.0 Type Library",
        {&automation::EnumerationOf<ErrorConstants>,
         &automation::EnumerationOf<FormatTypeConstants>},
        {&automation::DescriptionOf<IDusoro2>},
        {{"KovDusoro2", CLSID_KovDusoro2, "Sound files", &automation::DescriptionOf<IDusoro2>}}};
    return library;
}

}  // namespace contracts
}  // namespace mavrin2
