#include "control/editor/sound_file_companion.h"

#include "automation/limited_samples.h"
#include "automation/text.h"

namespace mavrin2::editor {

using automation::Bstr;
using contracts::IDusoro2;

namespace {

Bstr PathText(const std::filesystem::path& path) {
    return Bstr(automation::OleStringView(automation::ToOle(path)));
}

}  // namespace

FileKind FileKindOf(const std::filesystem::path& path) {
    const std::string name = path.string();
    const std::size_t point = name.rfind('.');
    if (point == std::string::npos) return FileKind::Sound;
    const std::string extension = automation::AsciiLower(name.substr(point));
    if (extension == ".wma") return FileKind::Wma;
    if (extension == ".cda") return FileKind::CdTrack;
    return FileKind::Sound;
}

void SoundFileCompanion::OpenSoundFile(const std::filesystem::path& path,
                                       FormatTypeConstants type) {
    ++session_;
    companion_->OpenSoundFile(PathText(path).Get(), static_cast<LONG>(type), 1);
}

ErrorConstants SoundFileCompanion::TryOpen(const std::filesystem::path& path,
                                           FormatTypeConstants type) {
    ErrorConstants error = ErrorConstants::NOERRORS;
    try {
        OpenSoundFile(path, type);
        GetErrorCode(error);
    } catch (...) {
        // Anybody may have written the companion: whatever escapes from it ends here.
        error = ErrorConstants::FORMATNOTSUPPORT;
    }
    return error;
}

void SoundFileCompanion::CreateSoundFile(const std::filesystem::path& path,
                                         FormatTypeConstants type) {
    ++session_;
    companion_->CreateSoundFile(PathText(path).Get(), static_cast<LONG>(type));
}

bool SoundFileCompanion::CloseFile() {
    ++session_;
    return SUCCEEDED(companion_->CloseFile());
}

bool SoundFileCompanion::WriteBlock(const Samples& samples) {
    return SUCCEEDED(companion_->WriteBlock(samples.Get()));
}

bool SoundFileCompanion::ReadBlock(std::int32_t frames, Samples& samples) {
    return SUCCEEDED(companion_->ReadBlock(frames, samples.Put()));
}

void SoundFileCompanion::SetPcmFormat(std::int32_t frequency, std::int32_t channels) {
    companion_->SetPcmFormat(frequency, channels);
}

void SoundFileCompanion::SetFormatPCM(std::int32_t frequency, std::int32_t channels,
                                      std::int32_t bitsPerSample) {
    companion_->SetFormatPCM(frequency, channels, bitsPerSample);
}

void SoundFileCompanion::SetFormatVOX(std::int32_t frequency) {
    companion_->SetFormatVOX(frequency);
}

void SoundFileCompanion::SetWmaMode(bool on) {
    companion_->SetWmaMode(on ? 1 : 0);
}

template <class Method>
std::int32_t SoundFileCompanion::Number(Method method) {
    LONG value = 0;
    (companion_.Get()->*method)(&value);
    return value;
}

void SoundFileCompanion::GetErrorCode(ErrorConstants& error) {
    LONG code = static_cast<LONG>(error);
    companion_->GetErrorCode(&code);
    error = static_cast<ErrorConstants>(code);
}

ErrorConstants SoundFileCompanion::ReasonOfFailure() {
    ErrorConstants reason = ErrorConstants::NOERRORS;
    GetErrorCode(reason);
    return reason == ErrorConstants::NOERRORS ? ErrorConstants::FILEACCESS : reason;
}

void SoundFileCompanion::AbandonOutput() {
    OpenSoundFile({}, FormatTypeConstants::DEFAULT);
}

std::int32_t SoundFileCompanion::GetLength() {
    return Number(&IDusoro2::GetLength);
}
std::int32_t SoundFileCompanion::GetSourceFrequency() {
    return Number(&IDusoro2::GetSourceFrequency);
}
std::int32_t SoundFileCompanion::GetFrequency() {
    return Number(&IDusoro2::GetFrequency);
}
std::int32_t SoundFileCompanion::GetChannels() {
    return Number(&IDusoro2::GetChannels);
}
std::int32_t SoundFileCompanion::GetBitsPerSample() {
    return Number(&IDusoro2::GetBitsPerSample);
}
bool SoundFileCompanion::IsPlainPcm() {
    return Number(&IDusoro2::GetFormatKind) == 1;
}

std::int64_t SoundFileCompanion::LimitedSamples() const {
    return automation::LimitedSamplesOf(companion_.Get());
}

std::string SoundFileCompanion::GetFormatText() {
    Bstr text;
    companion_->GetFormatText(text.Put());
    return text.Utf8();
}

}  // namespace mavrin2::editor
