#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/object.h"
#include "companions/contracts/dusoro.h"

namespace mavrin2::tests {

// A file companion that reads one sound out of memory and keeps what is written to it.
class FakeDusoro final : public automation::AutomationObject<FakeDusoro, contracts::IDusoro2> {
public:
    explicit FakeDusoro(IUnknown* outer) : AutomationObject(outer) {}
    ~FakeDusoro() = default;

    // What every file holds that is opened.
    struct {
        LONG Frequency = 1000;
        LONG SourceFrequency = 1000;
        LONG Channels = 1;
        std::vector<std::int16_t> Samples;  // interleaved
        std::optional<LONG> ClaimedFrames;  // where it is not the true length
        std::optional<LONG> FramesPerRead;  // where blocks come smaller than asked for
        LONG Bits = 16;
        LONG Kind = 1;  // plain PCM
        std::string Text = "Fake sound";
    } Source;

    // What goes wrong.
    LONG OpenCode = 0;
    LONG CreateCode = 0;
    bool ThrowsInOpen = false;
    int FailingWrite = 0;  // the nth WriteBlock of an output file
    bool FailingClose = false;
    LONG FailureCode = 0;  // told by GetErrorCode after one of these two

    // What came out of the last output file.
    enum class Output { None, Unfinished, Complete, GivenUp };
    Output State = Output::None;
    std::vector<std::int16_t> Written;
    std::vector<std::size_t> WrittenBlocks;  // their lengths

    // Every call in its order, as "Name(arguments)"; repeated ones once, as "Name(arguments) x3".
    std::string Calls;

    STDMETHODIMP OpenSoundFile(BSTR fileName, LONG formatType, LONG flag) override;
    STDMETHODIMP CloseFile() override;
    STDMETHODIMP CreateSoundFile(BSTR fileName, LONG formatType) override;
    STDMETHODIMP WriteBlock(SAFEARRAY* samples) override;
    STDMETHODIMP ReadBlock(LONG count, SAFEARRAY** samples) override;
    STDMETHODIMP SetPcmFormat(LONG frequency, LONG channels) override;
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
    void Record(const std::string& name, const std::string& arguments = {});
    void GiveUpOutput();
    HRESULT Answer(const char* name, LONG* target, LONG value);

    std::string lastCall_;
    int repeated_ = 0;
    std::size_t readValues_ = 0;
    LONG code_ = 0;
};

}  // namespace mavrin2::tests
