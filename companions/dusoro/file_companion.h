#pragma once

#include <memory>
#include <optional>
#include <span>

#include "automation/com_ptr.h"
#include "automation/limited_samples.h"
#include "automation/object.h"
#include "automation/safe_array.h"
#include "companions/contracts/dusoro.h"
#include "companions/dusoro/sound/sound_files.h"

namespace mavrin2::dusoro {

// The class KovDusoro2: one sound file at a time, for reading or for writing.
class FileCompanion final
    : public automation::AutomationObject<FileCompanion, contracts::IDusoro2> {
public:
    FileCompanion(IUnknown* outer, SoundFiles files)
        : AutomationObject(outer),
          files_(std::move(files)),
          limitedSamples_(Identity(), [this] { return limitedBefore_ + LimitedInFile(); }) {}

    void* FindInterface(REFIID iid);

    STDMETHODIMP OpenSoundFile(BSTR fileName, LONG formatType, LONG flag) override;
    STDMETHODIMP CloseFile() override;
    STDMETHODIMP CreateSoundFile(BSTR fileName, LONG formatType) override;
    STDMETHODIMP WriteBlock(SAFEARRAY* samples) override;
    STDMETHODIMP ReadBlock(LONG count, SAFEARRAY** samples) override;
    STDMETHODIMP SetPcmFormat(LONG frequency, LONG channels) override;
    STDMETHODIMP SetFormatPCM(LONG frequency, LONG channels, LONG bitsPerSample) override;
    STDMETHODIMP SetFormatVOX(LONG frequency) override;
    STDMETHODIMP IsFormatMpegAvailable(LONG frequency, LONG bitrate, LONG channels,
                                       VARIANT_BOOL* available) override;
    STDMETHODIMP IsFormatOggVorbisAvailable(LONG frequency, LONG channels, LONG nominalBitrate,
                                            LONG minBitrate, LONG maxBitrate,
                                            VARIANT_BOOL* available) override;
    STDMETHODIMP SetFormatFromMenu(VARIANT_BOOL* chosen) override;
    STDMETHODIMP SetFormatLikeSample(BSTR fileName) override;
    STDMETHODIMP SetFormatRAW(LONG typeCompress, LONG frequency, LONG channels,
                              LONG bitsPerSample) override;
    STDMETHODIMP SetFormatALAW(LONG frequency, LONG channels) override;
    STDMETHODIMP SetFormatULAW(LONG frequency, LONG channels) override;
    STDMETHODIMP SetFormatADPCM(LONG frequency, LONG channels) override;
    STDMETHODIMP SetFormatGSM(LONG frequency) override;
    STDMETHODIMP SetFormatDSP() override;
    STDMETHODIMP SetFormatMP2(LONG frequency, LONG bitrate, LONG channels) override;
    STDMETHODIMP SetFormatMP3(LONG frequency, LONG bitrate, LONG channels) override;
    STDMETHODIMP SetFormatMP3Ex(contracts::ILameSettings* settings) override;
    STDMETHODIMP SetFormatOggVorbis(LONG frequency, LONG channels, LONG nominalBitrate,
                                    LONG minBitrate, LONG maxBitrate, LONG quality) override;
    STDMETHODIMP SetFormatWMA(LONG profile) override;
    STDMETHODIMP SetFormatG721(LONG frequency) override;
    STDMETHODIMP SetFormatG723(LONG frequency, LONG bitsPerSample) override;
    STDMETHODIMP SetFormatG726(LONG frequency, LONG bitsPerSample) override;
    STDMETHODIMP GetLength(LONG* frames) override;
    STDMETHODIMP GetSourceFrequency(LONG* frequency) override;
    STDMETHODIMP GetFormatText(BSTR* text) override;
    STDMETHODIMP GetBitsPerSample(LONG* bits) override;
    STDMETHODIMP GetErrorCode(LONG* code) override;
    STDMETHODIMP GetChannels(LONG* channels) override;
    STDMETHODIMP GetFrequency(LONG* frequency) override;
    STDMETHODIMP GetFormatKind(LONG* kind) override;
    STDMETHODIMP SetWmaMode(LONG on) override;

private:
    std::int64_t LimitedInFile() const;
    void Drop();
    HRESULT FailOutput();
    bool BeginReading();
    bool BeginWriting();
    bool Write(std::span<const std::int16_t> samples);
    automation::SafeArray<std::int16_t> Read(std::size_t frames);
    // Of the open file; of the chosen output format while none is open.
    OutputDescription Described() const;
    HRESULT Choose(const OutputFormat& format);
    HRESULT Answer(VARIANT_BOOL* target, const OutputFormat& format) const;

    SoundFiles files_;
    OutputSettings settings_;
    automation::ComPtr<contracts::ILameSettings> lame_;  // read when a file is started
    std::unique_ptr<SoundReader> reader_;
    std::unique_ptr<SoundWriter> writer_;
    SoundError error_ = SoundError::None;
    std::optional<PcmFormat> wanted_;  // of the open input file, when not its own
    bool begun_ = false;               // samples have passed
    bool outputFailed_ = false;        // and its file is gone
    std::int64_t framesRead_ = 0;
    std::int64_t limitedBefore_ = 0;    // samples of the files before
    std::optional<std::int16_t> half_;  // a left sample whose right one comes with the next block
    automation::LimitedSamplesPart limitedSamples_;
};

}  // namespace mavrin2::dusoro
