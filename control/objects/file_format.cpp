#include "control/objects/file_format.h"

#include <cstdint>

#include "control/objects/private_interfaces.h"

namespace mavrin2::objects {

using contracts::IDusoro2;
using namespace interfaces;

template <class Act>
HRESULT CMavrin2FileFormat::Choose(Act&& act) {
    return choice_.Do([&](OutputChoice& choice) {
        act(choice);
        choice.Format.FormatDescription = choice.Companion.GetFormatText();
    });
}

template <class Method, class... Arguments>
HRESULT CMavrin2FileFormat::Set(Method method, Arguments... arguments) {
    return Choose([&](OutputChoice& choice) { choice.Companion.Call(method, arguments...); });
}

template <class Method, class... Arguments>
HRESULT CMavrin2FileFormat::Ask(VARIANT_BOOL* result, Method method, Arguments... arguments) {
    if (!result) return E_POINTER;
    *result = VARIANT_FALSE;
    return choice_.Do(
        [&](OutputChoice& choice) { choice.Companion.Call(method, arguments..., result); });
}

STDMETHODIMP CMavrin2FileFormat::SetFormatFromMenu(VARIANT_BOOL* Chosen) {
    if (!Chosen) return E_POINTER;
    *Chosen = VARIANT_FALSE;
    return Set(&IDusoro2::SetFormatFromMenu, Chosen);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatLikeSample(BSTR fileName) {
    return Set(&IDusoro2::SetFormatLikeSample, fileName);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatPCM(FrequencyConstants Frequency,
                                              ChannelsConstants nChannels,
                                              BitsPerSampleConstants BitsPerSample) {
    return Set(&IDusoro2::SetFormatPCM, Frequency, nChannels, BitsPerSample);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatRAW(RawTypeCompressConstants TypeCompress,
                                              FrequencyConstants Frequency,
                                              ChannelsConstants nChannels,
                                              BitsPerSampleConstants BitsPerSample) {
    return Set(&IDusoro2::SetFormatRAW, TypeCompress, Frequency, nChannels, BitsPerSample);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatALAW(FrequencyConstants Frequency,
                                               ChannelsConstants nChannels) {
    return Set(&IDusoro2::SetFormatALAW, Frequency, nChannels);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatULAW(FrequencyConstants Frequency,
                                               ChannelsConstants nChannels) {
    return Set(&IDusoro2::SetFormatULAW, Frequency, nChannels);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatADPCM(FrequencyConstants Frequency,
                                                ChannelsConstants nChannels) {
    return Set(&IDusoro2::SetFormatADPCM, Frequency, nChannels);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatGSM(FrequencyConstants Frequency) {
    return Set(&IDusoro2::SetFormatGSM, Frequency);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatVOX(FrequencyConstants Frequency) {
    return Set(&IDusoro2::SetFormatVOX, Frequency);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatDSP() {
    return Set(&IDusoro2::SetFormatDSP);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatMP2(FrequencyConstants Frequency,
                                              BitrateConstants Bitrate,
                                              ChannelsConstants nChannels) {
    return Set(&IDusoro2::SetFormatMP2, Frequency, Bitrate, nChannels);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatMP3(FrequencyConstants Frequency,
                                              BitrateConstants Bitrate,
                                              ChannelsConstants nChannels) {
    return Set(&IDusoro2::SetFormatMP3, Frequency, Bitrate, nChannels);
}

// Later changes of the same object reach the companion through the settings that both share.
STDMETHODIMP CMavrin2FileFormat::SetFormatMP3Ex(IMavrin2LameEnc* LameFormat) {
    if (!LameFormat) return S_OK;
    return Choose([&](OutputChoice& choice) {
        const automation::ComPtr<IMavrin2LameEnc> given(LameFormat);
        choice.LameEnc.Reset();
        choice.LameEnc = given.As<IMavrin2LameEnc>();
        // Objects of a host's own have none.
        if (const auto shared = given.As<ILameCompanion>())
            choice.Companion.Call(&IDusoro2::SetFormatMP3Ex, shared->Get());
    });
}

STDMETHODIMP CMavrin2FileFormat::SetFormatOggVorbis(FrequencyConstants Frequency,
                                                    ChannelsConstants nChannels,
                                                    LONG NominalBitrate, LONG MinBitrate,
                                                    LONG MaxBitrate, SHORT Quality) {
    return Set(&IDusoro2::SetFormatOggVorbis, Frequency, nChannels, NominalBitrate, MinBitrate,
               MaxBitrate, static_cast<std::uint16_t>(Quality));
}

STDMETHODIMP CMavrin2FileFormat::SetFormatWMA(LONG Profile) {
    return Choose([&](OutputChoice& choice) {
        choice.Companion.SetWmaMode(true);
        choice.Companion.Call(&IDusoro2::SetFormatWMA, Profile);
    });
}

STDMETHODIMP CMavrin2FileFormat::SetFormatG721(FrequencyConstants Frequency) {
    return Set(&IDusoro2::SetFormatG721, Frequency);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatG723(FrequencyConstants Frequency,
                                               BitsPerSampleConstants BitsPerSample) {
    return Set(&IDusoro2::SetFormatG723, Frequency, BitsPerSample);
}

STDMETHODIMP CMavrin2FileFormat::SetFormatG726(FrequencyConstants Frequency,
                                               BitsPerSampleConstants BitsPerSample) {
    return Set(&IDusoro2::SetFormatG726, Frequency, BitsPerSample);
}

STDMETHODIMP CMavrin2FileFormat::IsFormatMpegAvailable(FrequencyConstants Frequency,
                                                       BitrateConstants Bitrate,
                                                       ChannelsConstants Channels,
                                                       VARIANT_BOOL* Available) {
    return Ask(Available, &IDusoro2::IsFormatMpegAvailable, Frequency, Bitrate, Channels);
}

STDMETHODIMP CMavrin2FileFormat::IsFormatOggVorbisAvailable(FrequencyConstants Frequency,
                                                            ChannelsConstants nChannels,
                                                            LONG NominalBitrate, LONG MinBitrate,
                                                            LONG MaxBitrate,
                                                            VARIANT_BOOL* Available) {
    return Ask(Available, &IDusoro2::IsFormatOggVorbisAvailable, Frequency, nChannels,
               NominalBitrate, MinBitrate, MaxBitrate);
}

}  // namespace mavrin2::objects
