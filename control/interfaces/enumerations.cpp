#include "control/interfaces/enumerations.h"

#include "control/interfaces/identifiers.h"

namespace mavrin2::automation {

using interfaces::ChannelsConstants;
using interfaces::FrequencyConstants;
using interfaces::MousePointerConstants;
using interfaces::PlayTypeConstants;
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
const EnumerationDescription& EnumerationOf<RecordTypeConstants>() {
    static const EnumerationDescription description{
        "RecordTypeConstants",
        interfaces::ID_RecordTypeConstants,
        "What a recording does with the sound that is there",
        {MEMBER(RecordTypeConstants, RECORD_CLEAR), MEMBER(RecordTypeConstants, RECORD_MIX)}};
    return description;
}

#undef MEMBER

}  // namespace mavrin2::automation
