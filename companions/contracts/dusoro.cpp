#include "companions/contracts/dusoro.h"

#include "automation/interface_builder.h"
#include "companions/contracts/sound_inspector.h"

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
            .Method<&I::IsFormatMpegAvailable>(
                6, "IsFormatMpegAvailable", "Whether MP3 has this rate, bit rate and channels",
                In("frequency"), In("bitrate"), In("channels"), Result("available").Boolean())
            .Method<&I::IsFormatOggVorbisAvailable>(
                7, "IsFormatOggVorbisAvailable",
                "Whether Ogg Vorbis has this rate, these channels and bit rates", In("frequency"),
                In("channels"), In("nominalBitrate"), In("minBitrate"), In("maxBitrate"),
                Result("available").Boolean())
            .Method<&I::SetPcmFormat>(8, "SetPcmFormat",
                                      "Rate in hertz and channels of the samples that pass",
                                      In("frequency"), In("channels"))
            .Method<&I::SetFormatFromMenu>(9, "SetFormatFromMenu",
                                           "Lets the user choose; false without a dialog",
                                           Result("chosen").Boolean())
            .Method<&I::SetFormatLikeSample>(10, "SetFormatLikeSample",
                                             "The format of an existing file", In("fileName"))
            .Method<&I::SetFormatPCM>(11, "SetFormatPCM", "PCM for the next output",
                                      In("frequency"), In("channels"), In("bitsPerSample"))
            .Method<&I::SetFormatRAW>(12, "SetFormatRAW", "Samples without a header",
                                      In("typeCompress"), In("frequency"), In("channels"),
                                      In("bitsPerSample"))
            .Method<&I::SetFormatALAW>(13, "SetFormatALAW", "A-law in WAV", In("frequency"),
                                       In("channels"))
            .Method<&I::SetFormatULAW>(14, "SetFormatULAW", "u-law in WAV", In("frequency"),
                                       In("channels"))
            .Method<&I::SetFormatADPCM>(15, "SetFormatADPCM", "MS ADPCM in WAV", In("frequency"),
                                        In("channels"))
            .Method<&I::SetFormatGSM>(16, "SetFormatGSM", "GSM 6.10 in WAV, mono", In("frequency"))
            .Method<&I::SetFormatVOX>(17, "SetFormatVOX",
                                      "Headerless 4-bit ADPCM for the next output", In("frequency"))
            .Method<&I::SetFormatDSP>(18, "SetFormatDSP", "A format without an encoder")
            .Method<&I::SetFormatMP2>(19, "SetFormatMP2", "MP2; bit rate in kbit/s",
                                      In("frequency"), In("bitrate"), In("channels"))
            .Method<&I::SetFormatMP3>(20, "SetFormatMP3", "MP3; bit rate in kbit/s",
                                      In("frequency"), In("bitrate"), In("channels"))
            .Method<&I::SetFormatMP3Ex>(21, "SetFormatMP3Ex",
                                        "MP3 with all settings of its encoder", In("settings"))
            .Method<&I::SetFormatOggVorbis>(22, "SetFormatOggVorbis",
                                            "Ogg Vorbis; bit rates in kbit/s", In("frequency"),
                                            In("channels"), In("nominalBitrate"), In("minBitrate"),
                                            In("maxBitrate"), In("quality"))
            .Method<&I::SetFormatWMA>(23, "SetFormatWMA", "WMA in one of the numbered profiles",
                                      In("profile"))
            .Method<&I::SetFormatG721>(24, "SetFormatG721", "G.721, mono", In("frequency"))
            .Method<&I::SetFormatG723>(25, "SetFormatG723", "G.723, mono; 3 or 5 bits",
                                       In("frequency"), In("bitsPerSample"))
            .Method<&I::SetFormatG726>(26, "SetFormatG726", "G.726, mono; 2 to 5 bits",
                                       In("frequency"), In("bitsPerSample"))
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
        {&automation::DescriptionOf<IDusoro2>, &automation::DescriptionOf<ILameSettings>,
         &automation::DescriptionOf<ISoundInspector>},
        {{"KovDusoro2", CLSID_KovDusoro2, "Sound files", &automation::DescriptionOf<IDusoro2>},
         {"KovDusoroLame", CLSID_KovDusoroLame, "Settings of the MP3 encoder",
          &automation::DescriptionOf<ILameSettings>},
         {"KovDusoroInspector", CLSID_KovDusoroInspector, "What a sound file has beside its sound",
          &automation::DescriptionOf<ISoundInspector>}}};
    return library;
}

}  // namespace contracts
}  // namespace mavrin2
