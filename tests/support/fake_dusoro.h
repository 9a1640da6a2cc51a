#pragma once

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/object.h"
#include "companions/contracts/dusoro.h"

namespace mavrin2::tests {

// A file companion that reads one sound out of memory and keeps what is written to it.
class FakeDusoro final : public automation::AutomationObject<FakeDusoro, contracts::IDusoro2> {
public:
    // How a file is read into Source and written from Written and Source's rate and channels;
    // without them nothing is read or written.
    struct RealFiles {
        contracts::ErrorConstants (*Load)(FakeDusoro& self, const std::filesystem::path& path);
        contracts::ErrorConstants (*Store)(FakeDusoro& self, const std::filesystem::path& path);
    };

    explicit FakeDusoro(IUnknown* outer, RealFiles files = {})
        : AutomationObject(outer), files_(files) {}
    ~FakeDusoro() = default;

    // What every file holds that is opened.
    struct {
        LONG Frequency = 1000;
        LONG Channels = 1;
        std::vector<std::int16_t> Samples;  // interleaved
        std::optional<LONG> ClaimedFrames;  // where it is not the true length
        LONG Bits = 16;
        LONG Kind = 1;                      // plain PCM
        std::optional<LONG> FramesPerRead;  // where blocks come smaller than asked for
    } Source;

    // What goes wrong.
    LONG OpenCode = 0;
    LONG CreateCode = 0;
    bool ThrowsInOpen = false;
    int FailingRead = 0;   // the nth ReadBlock of an input file
    int FailingWrite = 0;  // the nth WriteBlock of an output file
    bool FailingClose = false;
    LONG FailureCode = 0;  // what GetErrorCode returns after one of these

    // What SetFormatMP3Ex was given.
    automation::ComPtr<contracts::ILameSettings> Lame;

    // Whether an input file is open.
    bool Reading = false;
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
    STDMETHODIMP IsFormatMpegAvailable(LONG a, LONG b, LONG c, VARIANT_BOOL* answer) override {
        *answer = VARIANT_TRUE;
        return Record("IsFormatMpegAvailable", {a, b, c});
    }
    STDMETHODIMP IsFormatOggVorbisAvailable(LONG a, LONG b, LONG c, LONG d, LONG e,
                                            VARIANT_BOOL* answer) override {
        *answer = VARIANT_TRUE;
        return Record("IsFormatOggVorbisAvailable", {a, b, c, d, e});
    }
    STDMETHODIMP SetFormatFromMenu(VARIANT_BOOL* answer) override {
        *answer = VARIANT_TRUE;
        return Record("SetFormatFromMenu");
    }
    STDMETHODIMP SetFormatLikeSample(BSTR fileName) override;
    STDMETHODIMP SetFormatMP3Ex(contracts::ILameSettings* settings) override {
        Lame = automation::ComPtr<contracts::ILameSettings>(settings);
        return Record("SetFormatMP3Ex");
    }
    STDMETHODIMP SetFormatPCM(LONG a, LONG b, LONG c) override {
        return Record("SetFormatPCM", {a, b, c});
    }
    STDMETHODIMP SetFormatRAW(LONG a, LONG b, LONG c, LONG d) override {
        return Record("SetFormatRAW", {a, b, c, d});
    }
    STDMETHODIMP SetFormatALAW(LONG a, LONG b) override { return Record("SetFormatALAW", {a, b}); }
    STDMETHODIMP SetFormatULAW(LONG a, LONG b) override { return Record("SetFormatULAW", {a, b}); }
    STDMETHODIMP SetFormatADPCM(LONG a, LONG b) override {
        return Record("SetFormatADPCM", {a, b});
    }
    STDMETHODIMP SetFormatGSM(LONG a) override { return Record("SetFormatGSM", {a}); }
    STDMETHODIMP SetFormatVOX(LONG a) override { return Record("SetFormatVOX", {a}); }
    STDMETHODIMP SetFormatDSP() override { return Record("SetFormatDSP"); }
    STDMETHODIMP SetFormatMP2(LONG a, LONG b, LONG c) override {
        return Record("SetFormatMP2", {a, b, c});
    }
    STDMETHODIMP SetFormatMP3(LONG a, LONG b, LONG c) override {
        return Record("SetFormatMP3", {a, b, c});
    }
    STDMETHODIMP SetFormatOggVorbis(LONG a, LONG b, LONG c, LONG d, LONG e, LONG f) override {
        return Record("SetFormatOggVorbis", {a, b, c, d, e, f});
    }
    STDMETHODIMP SetFormatWMA(LONG a) override { return Record("SetFormatWMA", {a}); }
    STDMETHODIMP SetFormatG721(LONG a) override { return Record("SetFormatG721", {a}); }
    STDMETHODIMP SetFormatG723(LONG a, LONG b) override { return Record("SetFormatG723", {a, b}); }
    STDMETHODIMP SetFormatG726(LONG a, LONG b) override { return Record("SetFormatG726", {a, b}); }
    STDMETHODIMP GetLength(LONG* frames) override {
        const auto length = static_cast<LONG>(Source.Samples.size()) / Source.Channels;
        return Answer("GetLength", frames, Source.ClaimedFrames.value_or(length));
    }
    STDMETHODIMP GetSourceFrequency(LONG* frequency) override {
        return Answer("GetSourceFrequency", frequency, Source.Frequency);
    }
    STDMETHODIMP GetBitsPerSample(LONG* bits) override {
        return Answer("GetBitsPerSample", bits, Source.Bits);
    }
    STDMETHODIMP GetErrorCode(LONG* code) override { return Answer("GetErrorCode", code, code_); }
    STDMETHODIMP GetChannels(LONG* channels) override {
        return Answer("GetChannels", channels, Source.Channels);
    }
    STDMETHODIMP GetFrequency(LONG* frequency) override {
        return Answer("GetFrequency", frequency, Source.Frequency);
    }
    STDMETHODIMP GetFormatKind(LONG* kind) override {
        return Answer("GetFormatKind", kind, Source.Kind);
    }
    STDMETHODIMP GetFormatText(BSTR* text) override;
    STDMETHODIMP SetWmaMode(LONG on) override { return Record("SetWmaMode", std::to_string(on)); }

private:
    HRESULT Record(const std::string& name, const std::string& arguments = {});
    HRESULT Record(const std::string& name, std::initializer_list<LONG> arguments);
    void GiveUpOutput() {
        if (State == Output::Unfinished) State = Output::GivenUp;
    }
    HRESULT Answer(const char* name, LONG* target, LONG value) {
        *target = value;
        return Record(name);
    }

    RealFiles files_;
    std::filesystem::path output_;
    LONG givenFrequency_ = 8000;
    LONG givenChannels_ = 1;
    std::string lastCall_;
    int repeated_ = 0;
    std::size_t readValues_ = 0;
    int reads_ = 0;
    LONG code_ = 0;
};

}  // namespace mavrin2::tests
