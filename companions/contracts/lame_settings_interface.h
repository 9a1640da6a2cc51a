#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// The settings with which the file companion encodes MP3: a separate object, which
// SetFormatMP3Ex takes. Values mean what the fields of LameSettings say and are read as they were
// written, in the fields' widths.
struct ILameSettings : public IDispatch {
    static constexpr IID Id = IID_ILameSettings;

    virtual HRESULT STDMETHODCALLTYPE SetParamsFromCommandLine(BSTR CommandLine) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetParamsFromPreset(SHORT Preset) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetParamsFromAltPreset(SHORT Preset) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_VbrBitrate(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_VbrBitrate(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_VbrQuality(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_VbrQuality(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_VbrCodingMethod(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_VbrCodingMethod(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AbrBitrate(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AbrBitrate(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TypeStereo(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TypeStereo(LONG Value) = 0;
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
    virtual HRESULT STDMETHODCALLTYPE get_Frequency(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Frequency(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Channels(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Channels(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Bitrate(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Bitrate(LONG Value) = 0;
    // LAME's own preset that the settings come from: 0 none, 1 r3mix, 2 standard, 3 extreme, 4
    // insane.
    virtual HRESULT STDMETHODCALLTYPE get_PresetKind(SHORT* Value) = 0;
};

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<contracts::ILameSettings>();
}  // namespace mavrin2::automation
