#pragma once

#include "automation/object.h"
#include "control/editor/document_format.h"
#include "control/editor/sound_file_companion.h"
#include "control/interfaces/file_format.h"
#include "control/objects/attachment.h"

namespace mavrin2::objects {

// What a choice of the output format acts on.
struct OutputChoice {
    editor::SoundFileCompanion& Companion;
    editor::DocumentFormat& Format;                            // whose description follows
    automation::ComPtr<interfaces::IMavrin2LameEnc>& LameEnc;  // the settings in use
};

// Hands the host's choice of an output format to the file companion, which keeps it.
class CMavrin2FileFormat final
    : public automation::AutomationObject<CMavrin2FileFormat, interfaces::IMavrin2FileFormat> {
public:
    explicit CMavrin2FileFormat(IUnknown* outer) : AutomationObject(outer) {}
    ~CMavrin2FileFormat() = default;

    void Attach(OutputChoice& choice, IUnknown* control) { choice_.Attach(choice, control); }
    void Detach() { choice_.Detach(); }

    STDMETHODIMP SetFormatFromMenu(VARIANT_BOOL* Chosen) override;
    STDMETHODIMP SetFormatLikeSample(BSTR fileName) override;
    STDMETHODIMP SetFormatPCM(interfaces::FrequencyConstants Frequency,
                              interfaces::ChannelsConstants nChannels,
                              interfaces::BitsPerSampleConstants BitsPerSample) override;
    STDMETHODIMP SetFormatRAW(interfaces::RawTypeCompressConstants TypeCompress,
                              interfaces::FrequencyConstants Frequency,
                              interfaces::ChannelsConstants nChannels,
                              interfaces::BitsPerSampleConstants BitsPerSample) override;
    STDMETHODIMP SetFormatALAW(interfaces::FrequencyConstants Frequency,
                               interfaces::ChannelsConstants nChannels) override;
    STDMETHODIMP SetFormatULAW(interfaces::FrequencyConstants Frequency,
                               interfaces::ChannelsConstants nChannels) override;
    STDMETHODIMP SetFormatADPCM(interfaces::FrequencyConstants Frequency,
                                interfaces::ChannelsConstants nChannels) override;
    STDMETHODIMP SetFormatGSM(interfaces::FrequencyConstants Frequency) override;
    STDMETHODIMP SetFormatVOX(interfaces::FrequencyConstants Frequency) override;
    STDMETHODIMP SetFormatDSP() override;
    STDMETHODIMP SetFormatMP2(interfaces::FrequencyConstants Frequency,
                              interfaces::BitrateConstants Bitrate,
                              interfaces::ChannelsConstants nChannels) override;
    STDMETHODIMP SetFormatMP3(interfaces::FrequencyConstants Frequency,
                              interfaces::BitrateConstants Bitrate,
                              interfaces::ChannelsConstants nChannels) override;
    STDMETHODIMP SetFormatMP3Ex(interfaces::IMavrin2LameEnc* LameFormat) override;
    STDMETHODIMP SetFormatOggVorbis(interfaces::FrequencyConstants Frequency,
                                    interfaces::ChannelsConstants nChannels, LONG NominalBitrate,
                                    LONG MinBitrate, LONG MaxBitrate, SHORT Quality) override;
    STDMETHODIMP SetFormatWMA(LONG Profile) override;
    STDMETHODIMP SetFormatG721(interfaces::FrequencyConstants Frequency) override;
    STDMETHODIMP SetFormatG723(interfaces::FrequencyConstants Frequency,
                               interfaces::BitsPerSampleConstants BitsPerSample) override;
    STDMETHODIMP SetFormatG726(interfaces::FrequencyConstants Frequency,
                               interfaces::BitsPerSampleConstants BitsPerSample) override;
    STDMETHODIMP IsFormatMpegAvailable(interfaces::FrequencyConstants Frequency,
                                       interfaces::BitrateConstants Bitrate,
                                       interfaces::ChannelsConstants Channels,
                                       VARIANT_BOOL* Available) override;
    STDMETHODIMP IsFormatOggVorbisAvailable(interfaces::FrequencyConstants Frequency,
                                            interfaces::ChannelsConstants nChannels,
                                            LONG NominalBitrate, LONG MinBitrate, LONG MaxBitrate,
                                            VARIANT_BOOL* Available) override;

private:
    // A call of the companion, after which the description of its format is taken.
    template <class Act>
    HRESULT Choose(Act&& act);
    template <class Method, class... Arguments>
    HRESULT Set(Method method, Arguments... arguments);
    template <class Method, class... Arguments>
    HRESULT Ask(VARIANT_BOOL* result, Method method, Arguments... arguments);

    Attachment<OutputChoice> choice_;
};

}  // namespace mavrin2::objects
