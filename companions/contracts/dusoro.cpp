#include "companions/contracts/dusoro.h"

#include "automation/interface_builder.h"

namespace mavrin2 {
namespace {

constexpr automation::PlannedMember kPlan[] = {
    {"OpenSoundFile", 1},
    {"CloseFile", 2},
    {"CreateSoundFile", 3},
    {"WriteBlock", 4},
    {"ReadBlock", 5},
    {"IsFormatMpegAvailable", 6},
    {"IsFormatOggVorbisAvailable", 7},
    {"SetPcmFormat", 8},
    {"SetFormatFromMenu", 9},
    {"SetFormatLikeSample", 10},
    {"SetFormatPCM", 11},
    {"SetFormatRAW", 12},
    {"SetFormatALAW", 13},
    {"SetFormatULAW", 14},
    {"SetFormatADPCM", 15},
    {"SetFormatGSM", 16},
    {"SetFormatVOX", 17},
    {"SetFormatDSP", 18},
    {"SetFormatMP2", 19},
    {"SetFormatMP3", 20},
    {"SetFormatMP3Ex", 21},
    {"SetFormatOggVorbis", 22},
    {"SetFormatWMA", 23},
    {"SetFormatG721", 24},
    {"SetFormatG723", 25},
    {"SetFormatG726", 26},
    {"GetLength", 27},
    {"GetSourceFrequency", 28},
    {"GetFormatText", 29},
    {"GetBitsPerSample", 30},
    {"GetErrorCode", 31},
    {"GetChannels", 32},
    {"GetFrequency", 33},
    {"GetFormatKind", 34},
    {"SetWmaMode", 35},
};

}  // namespace

namespace automation {

template <>
const InterfaceDescription& DescriptionOf<contracts::IDusoro2>() {
    using I = contracts::IDusoro2;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IDusoro2", "Reads and writes sound files", kPlan,
                            &contracts::DusoroLibrary)
            .Method<&I::OpenSoundFile>("OpenSoundFile", "Opens a sound file for reading",
                                       In("fileName"), In("formatType"), In("flag"))
            .Method<&I::CloseFile>("CloseFile",
                                   "Closes the input file or completes the output file")
            .Method<&I::CreateSoundFile>("CreateSoundFile", "Starts an output file", In("fileName"),
                                         In("formatType"))
            .Method<&I::WriteBlock>("WriteBlock", "Appends interleaved 16-bit samples",
                                    In("samples").ArrayOf(VT_I2))
            .Method<&I::ReadBlock>("ReadBlock", "The next sample frames, none at the end",
                                   In("count"), Result("samples").ArrayOf(VT_I2))
            .Method<&I::SetPcmFormat>("SetPcmFormat",
                                      "Rate in hertz and channels of the samples that pass",
                                      In("frequency"), In("channels"))
            .Method<&I::SetFormatVOX>("SetFormatVOX", "Headerless 4-bit ADPCM for the next output",
                                      In("frequency"))
            .Method<&I::GetLength>("GetLength", "Length in sample frames", Result("frames"))
            .Method<&I::GetSourceFrequency>("GetSourceFrequency",
                                            "Rate of the file itself in hertz", Result("frequency"))
            .Method<&I::GetFormatText>("GetFormatText", "Readable description of the format",
                                       Result("text"))
            .Method<&I::GetBitsPerSample>("GetBitsPerSample", "Bits of one sample in the file",
                                          Result("bits"))
            .Method<&I::GetErrorCode>("GetErrorCode", "ErrorConstants value of the last operation",
                                      Result("code"))
            .Method<&I::GetChannels>("GetChannels", "Channels of the samples read, 1 or 2",
                                     Result("channels"))
            .Method<&I::GetFrequency>("GetFrequency",
                                      "Rate of the samples read or of the output file in hertz",
                                      Result("frequency"))
            .Method<&I::GetFormatKind>("GetFormatKind", "1 for plain PCM", Result("kind"))
            .Method<&I::SetWmaMode>("SetWmaMode", "1 before a file of that kind", In("on"))
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
