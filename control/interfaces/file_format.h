#pragma once

#include "control/interfaces/enumerations.h"
#include "control/interfaces/identifiers.h"
#include "control/interfaces/lame_enc.h"

namespace mavrin2::interfaces {

// The format in which Save writes. Every member succeeds; values that a format does not have become
// the nearest that it has. Rates in hertz, bit rates in kbit/s, 1 or 2 channels.
struct IMavrin2FileFormat : public IDispatch {
    static constexpr IID Id = IID_IMavrin2FileFormat;

    // Lets the user choose. False, and nothing has changed, without a dialog.
    virtual HRESULT STDMETHODCALLTYPE SetFormatFromMenu(VARIANT_BOOL* Chosen) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatLikeSample(BSTR fileName) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatPCM(FrequencyConstants Frequency,
                                                   ChannelsConstants nChannels,
                                                   BitsPerSampleConstants BitsPerSample) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatRAW(RawTypeCompressConstants TypeCompress,
                                                   FrequencyConstants Frequency,
                                                   ChannelsConstants nChannels,
                                                   BitsPerSampleConstants BitsPerSample) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatALAW(FrequencyConstants Frequency,
                                                    ChannelsConstants nChannels) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatULAW(FrequencyConstants Frequency,
                                                    ChannelsConstants nChannels) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatADPCM(FrequencyConstants Frequency,
                                                     ChannelsConstants nChannels) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatGSM(FrequencyConstants Frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatVOX(FrequencyConstants Frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatDSP() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatMP2(FrequencyConstants Frequency,
                                                   BitrateConstants Bitrate,
                                                   ChannelsConstants nChannels) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatMP3(FrequencyConstants Frequency,
                                                   BitrateConstants Bitrate,
                                                   ChannelsConstants nChannels) = 0;
    // The control keeps the object, and Save uses the settings that it then has. Null is ignored.
    virtual HRESULT STDMETHODCALLTYPE SetFormatMP3Ex(IMavrin2LameEnc* LameFormat) = 0;
    // A minimum or maximum of 0 is none. With a quality of 0 ... 10 the bit rates are ignored; -1
    // is none.
    virtual HRESULT STDMETHODCALLTYPE SetFormatOggVorbis(FrequencyConstants Frequency,
                                                         ChannelsConstants nChannels,
                                                         LONG NominalBitrate, LONG MinBitrate,
                                                         LONG MaxBitrate, SHORT Quality) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatWMA(LONG Profile) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatG721(FrequencyConstants Frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatG723(FrequencyConstants Frequency,
                                                    BitsPerSampleConstants BitsPerSample) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatG726(FrequencyConstants Frequency,
                                                    BitsPerSampleConstants BitsPerSample) = 0;
    // Whether the encoder has exactly these values.
    virtual HRESULT STDMETHODCALLTYPE IsFormatMpegAvailable(FrequencyConstants Frequency,
                                                            BitrateConstants Bitrate,
                                                            ChannelsConstants Channels,
                                                            VARIANT_BOOL* Available) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsFormatOggVorbisAvailable(FrequencyConstants Frequency,
                                                                 ChannelsConstants nChannels,
                                                                 LONG NominalBitrate,
                                                                 LONG MinBitrate, LONG MaxBitrate,
                                                                 VARIANT_BOOL* Available) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2FileFormat>();
}  // namespace mavrin2::automation
