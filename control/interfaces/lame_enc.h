#pragma once

#include "control/interfaces/enumerations.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// Settings of the MP3 encoder, for SetFormatMP3Ex of the FileFormat object, which follows later
// changes. Hosts create it. Every member succeeds; values are kept as they are written, in the
// widths of contracts::LameSettings, whose comments say what they mean.
struct IMavrin2LameEnc : public IDispatch {
    static constexpr IID Id = IID_IMavrin2LameEnc;

    // The options of LAME's own program, separated by single spaces. All others return to their
    // defaults; what is unknown is ignored, and an empty line changes nothing.
    virtual HRESULT STDMETHODCALLTYPE SetParamsFromCommandLine(BSTR CommandLine) = 0;
    // 1 phone, 2 sw, 3 am, 4 fm, 5 voice, 6 radio, 7 tape, 8 hifi, 9 cd, 10 studio, 11 r3mix; all
    // others are the default.
    virtual HRESULT STDMETHODCALLTYPE SetParamsFromPreset(SHORT Preset) = 0;
    // 1 fast standard, 2 standard, 3 fast extreme, 4 extreme, 5 insane.
    virtual HRESULT STDMETHODCALLTYPE SetParamsFromAltPreset(SHORT Preset) = 0;

    virtual HRESULT STDMETHODCALLTYPE get_VbrBitrate(BitrateConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_VbrBitrate(BitrateConstants Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_VbrQuality(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_VbrQuality(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_VbrCodingMethod(Mp3LameMethodConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_VbrCodingMethod(Mp3LameMethodConstants Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AbrBitrate(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AbrBitrate(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TypeStereo(Mp3LameTypeStereoConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TypeStereo(Mp3LameTypeStereoConstants Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_EncoderQuality(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_EncoderQuality(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_WritingVBRHeader(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_WritingVBRHeader(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_BitReservoir(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_BitReservoir(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_BlockTypeControl(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_BlockTypeControl(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ShortBlocks(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ShortBlocks(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Emphasis(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Emphasis(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_StrictISOCompliance(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_StrictISOCompliance(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_StrictlyEnforceMinBitrate(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_StrictlyEnforceMinBitrate(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ATHControlMode(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ATHControlMode(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LowPassFrequency(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LowPassFrequency(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HighPassFrequency(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_HighPassFrequency(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LowPassWidth(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LowPassWidth(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HighPassWidth(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_HighPassWidth(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ErrorProtection(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ErrorProtection(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Frequency(FrequencyConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Frequency(FrequencyConstants Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Channels(ChannelsConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Channels(ChannelsConstants Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Bitrate(BitrateConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Bitrate(BitrateConstants Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2LameEnc>();
}  // namespace mavrin2::automation
