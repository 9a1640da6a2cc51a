#include "control/interfaces/enumerations.h"

#include "control/interfaces/identifiers.h"

namespace mavrin2::automation {

using interfaces::BitrateConstants;
using interfaces::BitsPerSampleConstants;
using interfaces::ChannelsConstants;
using interfaces::FrequencyConstants;
using interfaces::MousePointerConstants;
using interfaces::Mp3LameMethodConstants;
using interfaces::Mp3LameTypeStereoConstants;
using interfaces::PlayTypeConstants;
using interfaces::RawTypeCompressConstants;
using interfaces::RecordTypeConstants;
using interfaces::TrimConstants;
using interfaces::TypeViewConstants;

#define MEMBER(enumeration, name) \
    { #name, static_cast < std::int32_t>(enumeration::name) }

template <>
const EnumerationDescription& EnumerationOf<FrequencyConstants>() {
    static const EnumerationDescription description{
        "FrequencyConstants",
        interfaces::ID_FrequencyConstants,
        "Usual sample rates in hertz",
        {MEMBER(FrequencyConstants, FQ_6_KHZ), MEMBER(FrequencyConstants, FQ_8_KHZ),
         MEMBER(FrequencyConstants, FQ_11_KHZ), MEMBER(FrequencyConstants, FQ_12_KHZ),
         MEMBER(FrequencyConstants, FQ_16_KHZ), MEMBER(FrequencyConstants, FQ_22_KHZ),
         MEMBER(FrequencyConstants, FQ_24_KHZ), MEMBER(FrequencyConstants, FQ_32_KHZ),
         MEMBER(FrequencyConstants, FQ_44_KHZ), MEMBER(FrequencyConstants, FQ_48_KHZ),
         MEMBER(FrequencyConstants, FQ_88_KHZ), MEMBER(FrequencyConstants, FQ_96_KHZ)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<ChannelsConstants>() {
    static const EnumerationDescription description{
        "ChannelsConstants",
        interfaces::ID_ChannelsConstants,
        "Channels of a sound",
        {MEMBER(ChannelsConstants, MONO), MEMBER(ChannelsConstants, STEREO)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<TrimConstants>() {
    static const EnumerationDescription description{
        "TrimConstants",
        interfaces::ID_TrimConstants,
        "Ends of the selection",
        {MEMBER(TrimConstants, TRIM_LEFT), MEMBER(TrimConstants, TRIM_RIGHT),
         MEMBER(TrimConstants, TRIM_BOTH)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<MousePointerConstants>() {
    static const EnumerationDescription description{
        "MousePointerConstants",
        interfaces::ID_MousePointerConstants,
        "Pointers of the mouse",
        {MEMBER(MousePointerConstants, vbDefault), MEMBER(MousePointerConstants, vbArrow),
         MEMBER(MousePointerConstants, vbCrosshair), MEMBER(MousePointerConstants, vbIbeam),
         MEMBER(MousePointerConstants, vbIconPointer), MEMBER(MousePointerConstants, vbSizePointer),
         MEMBER(MousePointerConstants, vbSizeNESW), MEMBER(MousePointerConstants, vbSizeNS),
         MEMBER(MousePointerConstants, vbSizeNWSE), MEMBER(MousePointerConstants, vbSizeWE),
         MEMBER(MousePointerConstants, vbUpArrow), MEMBER(MousePointerConstants, vbHourglass),
         MEMBER(MousePointerConstants, vbNoDrop), MEMBER(MousePointerConstants, vbArrowHourglass),
         MEMBER(MousePointerConstants, vbArrowQuestion), MEMBER(MousePointerConstants, vbSizeAll),
         MEMBER(MousePointerConstants, vbCustom)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<TypeViewConstants>() {
    static const EnumerationDescription description{
        "TypeViewConstants",
        interfaces::ID_TypeViewConstants,
        "What the picture shows",
        {MEMBER(TypeViewConstants, WAVEFORM), MEMBER(TypeViewConstants, SPECTRAL),
         MEMBER(TypeViewConstants, EXPANDED)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<PlayTypeConstants>() {
    static const EnumerationDescription description{
        "PlayTypeConstants",
        interfaces::ID_PlayTypeConstants,
        "What is played",
        {MEMBER(PlayTypeConstants, NORMALPLAY), MEMBER(PlayTypeConstants, PLAYTOEND),
         MEMBER(PlayTypeConstants, PLAYLOOPED)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<BitrateConstants>() {
    static const EnumerationDescription description{
        "BitrateConstants",
        interfaces::ID_BitrateConstants,
        "Usual bit rates in kbit/s",
        {MEMBER(BitrateConstants, BR_NONE), MEMBER(BitrateConstants, BR_8_KBPS),
         MEMBER(BitrateConstants, BR_16_KBPS), MEMBER(BitrateConstants, BR_24_KBPS),
         MEMBER(BitrateConstants, BR_32_KBPS), MEMBER(BitrateConstants, BR_40_KBPS),
         MEMBER(BitrateConstants, BR_48_KBPS), MEMBER(BitrateConstants, BR_56_KBPS),
         MEMBER(BitrateConstants, BR_64_KBPS), MEMBER(BitrateConstants, BR_80_KBPS),
         MEMBER(BitrateConstants, BR_96_KBPS), MEMBER(BitrateConstants, BR_112_KBPS),
         MEMBER(BitrateConstants, BR_128_KBPS), MEMBER(BitrateConstants, BR_160_KBPS),
         MEMBER(BitrateConstants, BR_192_KBPS), MEMBER(BitrateConstants, BR_224_KBPS),
         MEMBER(BitrateConstants, BR_256_KBPS), MEMBER(BitrateConstants, BR_320_KBPS),
         MEMBER(BitrateConstants, BR_350_KBPS)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<RecordTypeConstants>() {
    static const EnumerationDescription description{
        "RecordTypeConstants",
        interfaces::ID_RecordTypeConstants,
        "What a recording does with the sound that is there",
        {MEMBER(RecordTypeConstants, RECORD_CLEAR), MEMBER(RecordTypeConstants, RECORD_MIX)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<BitsPerSampleConstants>() {
    static const EnumerationDescription description{
        "BitsPerSampleConstants",
        interfaces::ID_BitsPerSampleConstants,
        "Bits of one sample",
        {MEMBER(BitsPerSampleConstants, BPS_2_BIT), MEMBER(BitsPerSampleConstants, BPS_3_BIT),
         MEMBER(BitsPerSampleConstants, BPS_4_BIT), MEMBER(BitsPerSampleConstants, BPS_5_BIT),
         MEMBER(BitsPerSampleConstants, BPS_8_BIT), MEMBER(BitsPerSampleConstants, BPS_16_BIT),
         MEMBER(BitsPerSampleConstants, BPS_24_BIT), MEMBER(BitsPerSampleConstants, BPS_32_BIT)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<RawTypeCompressConstants>() {
    static const EnumerationDescription description{
        "RawTypeCompressConstants",
        interfaces::ID_RawTypeCompressConstants,
        "Coding of samples without a header",
        {MEMBER(RawTypeCompressConstants, PCM), MEMBER(RawTypeCompressConstants, ALAW),
         MEMBER(RawTypeCompressConstants, ULAW), MEMBER(RawTypeCompressConstants, GSM),
         MEMBER(RawTypeCompressConstants, IMA_ADPCM), MEMBER(RawTypeCompressConstants, MS_ADPCM)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<Mp3LameMethodConstants>() {
    static const EnumerationDescription description{
        "Mp3LameMethodConstants",
        interfaces::ID_Mp3LameMethodConstants,
        "How the bit rate of MP3 changes",
        {MEMBER(Mp3LameMethodConstants, VBR_NONE), MEMBER(Mp3LameMethodConstants, VBR_DEFAULT),
         MEMBER(Mp3LameMethodConstants, VBR_OLD), MEMBER(Mp3LameMethodConstants, VBR_NEW),
         MEMBER(Mp3LameMethodConstants, VBR_MTRH), MEMBER(Mp3LameMethodConstants, VBR_ABR)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<Mp3LameTypeStereoConstants>() {
    static const EnumerationDescription description{
        "Mp3LameTypeStereoConstants",
        interfaces::ID_Mp3LameTypeStereoConstants,
        "How MP3 has two channels",
        {MEMBER(Mp3LameTypeStereoConstants, SIMPLY),
         MEMBER(Mp3LameTypeStereoConstants, JOINTSTEREO),
         MEMBER(Mp3LameTypeStereoConstants, FORCEDJOINTSTEREO),
         MEMBER(Mp3LameTypeStereoConstants, DUALCHANNEL)}};
    return description;
}

#undef MEMBER

}  // namespace mavrin2::automation
