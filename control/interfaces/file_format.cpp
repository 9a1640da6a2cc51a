#include "control/interfaces/file_format.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2FileFormat>() {
    using I = interfaces::IMavrin2FileFormat;
    using interfaces::BitrateConstants;
    using interfaces::BitsPerSampleConstants;
    using interfaces::ChannelsConstants;
    using interfaces::FrequencyConstants;
    using interfaces::RawTypeCompressConstants;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2FileFormat", "The format in which Save writes",
                            &interfaces::ControlLibrary)
            .Method<&I::SetFormatFromMenu>(1, "SetFormatFromMenu",
                                           "Lets the user choose; false without a dialog",
                                           Result("Chosen").Boolean())
            .Method<&I::SetFormatLikeSample>(2, "SetFormatLikeSample",
                                             "The format of an existing file", In("fileName"))
            .Method<&I::SetFormatPCM>(
                3, "SetFormatPCM", "PCM of 8, 16, 24 or 32 bits",
                In("Frequency").Default(FrequencyConstants::FQ_8_KHZ),
                In("nChannels").Default(ChannelsConstants::MONO),
                In("BitsPerSample").Default(BitsPerSampleConstants::BPS_16_BIT))
            .Method<&I::SetFormatRAW>(
                4, "SetFormatRAW", "Samples without a header",
                In("TypeCompress").Default(RawTypeCompressConstants::PCM),
                In("Frequency").Default(FrequencyConstants::FQ_44_KHZ),
                In("nChannels").Default(ChannelsConstants::STEREO),
                In("BitsPerSample").Default(BitsPerSampleConstants::BPS_16_BIT))
            .Method<&I::SetFormatALAW>(5, "SetFormatALAW", "A-law in WAV",
                                       In("Frequency").Default(FrequencyConstants::FQ_8_KHZ),
                                       In("nChannels").Default(ChannelsConstants::MONO))
            .Method<&I::SetFormatULAW>(6, "SetFormatULAW", "u-law in WAV",
                                       In("Frequency").Default(FrequencyConstants::FQ_8_KHZ),
                                       In("nChannels").Default(ChannelsConstants::MONO))
            .Method<&I::SetFormatADPCM>(7, "SetFormatADPCM", "MS ADPCM in WAV",
                                        In("Frequency").Default(FrequencyConstants::FQ_44_KHZ),
                                        In("nChannels").Default(ChannelsConstants::STEREO))
            .Method<&I::SetFormatGSM>(8, "SetFormatGSM", "GSM 6.10 in WAV, mono",
                                      In("Frequency").Default(FrequencyConstants::FQ_8_KHZ))
            .Method<&I::SetFormatVOX>(9, "SetFormatVOX", "Headerless 4-bit ADPCM, mono",
                                      In("Frequency").Default(FrequencyConstants::FQ_8_KHZ))
            .Method<&I::SetFormatDSP>(10, "SetFormatDSP", "A format without an encoder: Save fails")
            .Method<&I::SetFormatMP2>(11, "SetFormatMP2", "MP2; bit rate in kbit/s",
                                      In("Frequency").Default(FrequencyConstants::FQ_44_KHZ),
                                      In("Bitrate").Default(BitrateConstants::BR_128_KBPS),
                                      In("nChannels").Default(ChannelsConstants::STEREO))
            .Method<&I::SetFormatMP3>(12, "SetFormatMP3", "MP3; bit rate in kbit/s",
                                      In("Frequency").Default(FrequencyConstants::FQ_44_KHZ),
                                      In("Bitrate").Default(BitrateConstants::BR_128_KBPS),
                                      In("nChannels").Default(ChannelsConstants::STEREO))
            .Method<&I::SetFormatMP3Ex>(13, "SetFormatMP3Ex",
                                        "MP3 with all settings of its encoder", In("LameFormat"))
            .Method<&I::SetFormatOggVorbis>(14, "SetFormatOggVorbis",
                                            "Ogg Vorbis; bit rates in kbit/s, 0 for none; quality "
                                            "0 ... 10 instead, -1 for none",
                                            In("Frequency").Default(FrequencyConstants::FQ_44_KHZ),
                                            In("nChannels").Default(ChannelsConstants::STEREO),
                                            In("NominalBitrate").Default(128),
                                            In("MinBitrate").Default(0),
                                            In("MaxBitrate").Default(0), In("Quality").Default(-1))
            .Method<&I::SetFormatWMA>(15, "SetFormatWMA", "WMA in one of the profiles 0 ... 59",
                                      In("Profile").Default(39))
            .Method<&I::SetFormatG721>(16, "SetFormatG721", "G.721, mono",
                                       In("Frequency").Default(FrequencyConstants::FQ_8_KHZ))
            .Method<&I::SetFormatG723>(
                17, "SetFormatG723", "G.723, mono; 3 or 5 bits",
                In("Frequency").Default(FrequencyConstants::FQ_8_KHZ),
                In("BitsPerSample").Default(BitsPerSampleConstants::BPS_3_BIT))
            .Method<&I::SetFormatG726>(
                18, "SetFormatG726", "G.726, mono; 2 to 5 bits",
                In("Frequency").Default(FrequencyConstants::FQ_8_KHZ),
                In("BitsPerSample").Default(BitsPerSampleConstants::BPS_4_BIT))
            .Method<&I::IsFormatMpegAvailable>(
                30, "IsFormatMpegAvailable", "Whether MP3 has this rate, bit rate and channels",
                In("Frequency"), In("Bitrate"), In("Channels"), Result("Available").Boolean())
            .Method<&I::IsFormatOggVorbisAvailable>(
                31, "IsFormatOggVorbisAvailable",
                "Whether Ogg Vorbis has this rate, these channels and bit rates", In("Frequency"),
                In("nChannels"), In("NominalBitrate"), In("MinBitrate").Default(0),
                In("MaxBitrate").Default(0), Result("Available").Boolean())
            .Build();
    return description;
}

}  // namespace mavrin2::automation
