#include "control/editor/document_loader.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace mavrin2::editor {
namespace {

constexpr std::int64_t kSecondsPerBlock = 20;

std::int32_t FramesPerBlock(std::int32_t frequency) {
    return static_cast<std::int32_t>(std::min<std::int64_t>(
        frequency * kSecondsPerBlock, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

DocumentLoader::~DocumentLoader() {
    target_.Close();
    services_.Temporary.Remove(targetPath_);
}

void DocumentLoader::LoadThroughCompanion(const std::filesystem::path& path,
                                          FormatTypeConstants type) {
    services_.Status.Status = StatusConstants::Opening;
    bool complete = false;
    const bool opened = OpenSource(path, type);
    const std::uint64_t session = companion_.Session();
    if (opened && TakeFormat() && CreateTarget()) {
        complete = ReadBlocks() && PushDocument() && !services_.Status.Idle();
        if (!ticket_.IsCurrent()) {
            if (companion_.Session() == session) companion_.CloseFile();
            return;
        }
    }
    companion_.CloseFile();
    if (services_.History.Current() && !(complete && LengthIsAsExpected())) {
        services_.View.BuildOverviewSummary();
        if (!ticket_.IsCurrent()) return;
    }
    services_.Status.Status = StatusConstants::Idle;
}

bool DocumentLoader::OpenSource(const std::filesystem::path& path, FormatTypeConstants type) {
    try {
        companion_.OpenSoundFile(path, type);
        companion_.GetErrorCode(services_.Status.LastError);
    } catch (...) {
        // Anybody may have written the companion: whatever escapes from it ends here.
        services_.Status.LastError = ErrorConstants::FORMATNOTSUPPORT;
    }
    return services_.Status.LastError == ErrorConstants::NOERRORS;
}

bool DocumentLoader::TakeFormat() {
    DocumentFormat& format = services_.Format;
    companion_.GetSourceFrequency();
    const std::int32_t frequency = companion_.GetFrequency();
    const std::int32_t channels = companion_.GetChannels();
    if (frequency < 1 || channels < 1 || channels > 2) {
        services_.Status.LastError = ErrorConstants::FORMATNOTSUPPORT;
        return false;
    }
    format.Frequency = frequency;
    format.Channels = channels;
    format.BitsPerSample = companion_.GetBitsPerSample();
    expected_ = Bytes(std::int64_t{companion_.GetLength()} * 2 * channels);
    const bool plain = companion_.IsPlainPcm();
    format.FormatDescription = companion_.GetFormatText();
    if (!plain) format.BitsPerSample = 16;
    return true;
}

bool DocumentLoader::CreateTarget() {
    targetPath_ = services_.Temporary.MakeTempFileName();
    return !targetPath_.empty() &&
           target_.Create(targetPath_, services_.Format.Frequency, services_.Format.Channels);
}

bool DocumentLoader::ReadBlocks() {
    services_.Observer.BeginLoading(expected_);
    services_.Channels.Recount(services_.Format.Channels);
    services_.View.RecomputeTimeScale();
    while (!services_.Status.Idle()) {
        const auto block = companion_.ReadBlock(FramesPerBlock(services_.Format.Frequency));
        const automation::ArrayView<std::int16_t> samples(block.Get());
        if (samples.Elements().size() < 2) break;
        if (!target_.Write(std::as_bytes(samples.Elements()))) {
            services_.Status.LastError = ErrorConstants::FILEACCESS;
            return false;
        }
        services_.Observer.Block(std::as_bytes(samples.Elements()));
        read_ = read_ + Bytes(static_cast<std::int64_t>(samples.Elements().size_bytes()));
        if (!Report(PercentDone())) return false;
    }
    services_.Observer.EndLoading();
    return Report(100);
}

// Never 100: that is for the end.
int DocumentLoader::PercentDone() const {
    const auto expected = static_cast<double>(std::max<std::int64_t>(expected_.Count(), 1));
    return static_cast<int>(std::min(0.9999, static_cast<double>(read_.Count()) / expected) * 100);
}

bool DocumentLoader::Report(int percent) {
    services_.View.ShowProgress(percent);
    services_.Events.BlockOperation(percent);
    if (!ticket_.IsCurrent()) return false;
    services_.View.Redraw();
    return ticket_.IsCurrent();
}

bool DocumentLoader::PushDocument() {
    written_ = Bytes(target_.Length());
    if (!target_.Close()) {
        services_.Status.LastError = ErrorConstants::FILEACCESS;
        return false;
    }
    auto state = std::make_unique<DocumentState>();
    state->WorkFilePath = targetPath_;
    state->TotalBytes = written_;
    state->Frequency = services_.Format.Frequency;
    state->Channels = services_.Format.Channels;
    services_.History.PushState(std::move(state));
    targetPath_.clear();  // it belongs to the history now
    ticket_.Moved();
    return true;
}

bool DocumentLoader::LengthIsAsExpected() const {
    return std::abs((written_ - expected_).Count()) <= written_.Count() / 100;
}

}  // namespace mavrin2::editor
