#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "automation/com_ptr.h"
#include "automation/safe_array.h"
#include "companions/contracts/dusoro.h"

namespace mavrin2::editor {

using contracts::ErrorConstants;
using contracts::FormatTypeConstants;

// What the name of a sound file says about how it is read and written.
enum class FileKind { Sound = 0, Wma = 1, CdTrack = 2 };

FileKind FileKindOf(const std::filesystem::path& path);

// The file companion as the editor calls it. Each method is one call of the contract.
class SoundFileCompanion {
public:
    using Samples = automation::SafeArray<std::int16_t>;

    void Attach(automation::ComPtr<contracts::IDusoro2> companion) {
        companion_ = std::move(companion);
    }
    void Release() { companion_.Reset(); }

    void OpenSoundFile(const std::filesystem::path& path, FormatTypeConstants type);
    // The same, and the code of its outcome; FORMATNOTSUPPORT for an exception of the companion's.
    ErrorConstants TryOpen(const std::filesystem::path& path, FormatTypeConstants type);
    void CreateSoundFile(const std::filesystem::path& path, FormatTypeConstants type);
    // False when the output file could not be completed, or nothing was open for writing.
    bool CloseFile();
    bool WriteBlock(const Samples& samples);
    // At most `frames` frames; no array when the companion gave none. False when it failed.
    bool ReadBlock(std::int32_t frames, Samples& samples);
    void SetPcmFormat(std::int32_t frequency, std::int32_t channels);
    void SetFormatPCM(std::int32_t frequency, std::int32_t channels, std::int32_t bitsPerSample);
    void SetFormatVOX(std::int32_t frequency);
    void SetWmaMode(bool on);
    // A call of the contract that only passes a host's choice of the output format.
    template <class... Parameters, class... Arguments>
    void Call(HRESULT (STDMETHODCALLTYPE contracts::IDusoro2::*method)(Parameters...),
              Arguments... arguments) {
        (companion_.Get()->*method)(static_cast<Parameters>(arguments)...);
    }

    // Changes whenever the companion opens, starts or closes a file. An operation can see whether
    // the file it began with is still the one the companion holds.
    std::uint64_t Session() const { return session_; }

    // The companion writes the code of its last file operation into `error`.
    void GetErrorCode(ErrorConstants& error);
    // Why a call has just failed; never NOERRORS.
    ErrorConstants ReasonOfFailure();
    // Gives up an unfinished output file: to open something else is how the contract says it.
    void AbandonOutput();
    std::int32_t GetLength();  // in frames
    std::int32_t GetSourceFrequency();
    std::int32_t GetFrequency();
    std::int32_t GetChannels();
    std::int32_t GetBitsPerSample();
    bool IsPlainPcm();
    std::string GetFormatText();
    // Samples that it has limited to full scale since it was made; 0 if it cannot say.
    std::int64_t LimitedSamples() const;

private:
    template <class Method>
    std::int32_t Number(Method method);

    automation::ComPtr<contracts::IDusoro2> companion_;
    std::uint64_t session_ = 0;
};

}  // namespace mavrin2::editor
