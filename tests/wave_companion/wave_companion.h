#pragma once

#include <filesystem>
#include <optional>

#include "automation/object.h"
#include "companions/contracts/dusoro.h"
#include "tests/wave_companion/wave_file.h"

namespace mavrin2::tests {

// A file companion that reads and writes 16-bit PCM WAVE files and nothing else, at the rate and
// channels they have. Where the variable MAVRIN2_TEST_CALLS names a file, every call is added to it
// as a line.
class WaveCompanion final
    : public automation::AutomationObject<WaveCompanion, contracts::IDusoro2> {
public:
    explicit WaveCompanion(IUnknown* outer) : AutomationObject(outer) {}
    ~WaveCompanion() = default;

    STDMETHODIMP OpenSoundFile(BSTR fileName, LONG formatType, LONG flag) override;
    STDMETHODIMP CloseFile() override;
    STDMETHODIMP CreateSoundFile(BSTR fileName, LONG formatType) override;
    STDMETHODIMP WriteBlock(SAFEARRAY* samples) override;
    STDMETHODIMP ReadBlock(LONG count, SAFEARRAY** samples) override;
    STDMETHODIMP SetPcmFormat(LONG frequency, LONG channels) override;
    STDMETHODIMP SetFormatPCM(LONG frequency, LONG channels, LONG bits) override;
    STDMETHODIMP SetFormatVOX(LONG frequency) override;
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
    HRESULT Answer(const char* call, LONG* target, LONG value);
    HRESULT Finish(contracts::ErrorConstants code);

    WaveSound sound_;
    std::size_t read_ = 0;                         // samples of sound_ that were handed out
    std::optional<std::filesystem::path> output_;  // while one is being written
    LONG givenFrequency_ = 8000;
    LONG givenChannels_ = 1;
    LONG code_ = 0;
};

}  // namespace mavrin2::tests
