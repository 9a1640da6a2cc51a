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

void DocumentLoader::LoadThroughCompanion(const std::filesystem::path& path,
                                          FormatTypeConstants type) {
    status_.Set(StatusConstants::Opening);
    bool complete = false;
    const bool opened = OpenSource(path, type);
    const std::uint64_t session = companion_.Session();
    if (opened && TakeFormat()) {
        complete = (target_.Create(document_.Format) || FailFileAccess()) && ReadBlocks() &&
                   PushDocument() && !operation_.Status.Idle();
        if (!ticket_.IsCurrent()) {
            if (companion_.Session() == session) companion_.CloseFile();
            return;
        }
    }
    companion_.CloseFile();
    if (document_.History.Current() && !(complete && LengthIsAsExpected())) {
        status_.End();
        presentation_.View.BuildOverviewSummary();
    }
}

bool DocumentLoader::OpenSource(const std::filesystem::path& path, FormatTypeConstants type) {
    operation_.Status.LastError = companion_.TryOpen(path, type);
    return operation_.Status.LastError == ErrorConstants::NOERRORS;
}

bool DocumentLoader::TakeFormat() {
    DocumentFormat& format = document_.Format;
    companion_.GetSourceFrequency();
    const std::int32_t frequency = companion_.GetFrequency();
    const std::int32_t channels = companion_.GetChannels();
    if (frequency < 1 || channels < 1 || channels > 2) {
        operation_.Status.LastError = ErrorConstants::FORMATNOTSUPPORT;
        return false;
    }
    format.Frequency = frequency;
    format.Channels = channels;
    format.BitsPerSample = companion_.GetBitsPerSample();
    expected_ = Bytes(std::int64_t{companion_.GetLength()} * 2 * channels);
    const bool plain = companion_.IsPlainPcm();
    format.FormatDescription = companion_.GetFormatText();
    presentation_.Rate.SetSampleRate(frequency);
    if (!plain) format.BitsPerSample = 16;
    return true;
}

bool DocumentLoader::FailFileAccess() {
    operation_.Status.LastError = ErrorConstants::FILEACCESS;
    return false;
}

bool DocumentLoader::ReadBlocks() {
    presentation_.Observer.BeginLoading(expected_);
    document_.Channels.Recount(document_.Format.Channels);
    presentation_.View.FormatChanged();
    if (!ticket_.IsCurrent()) return false;
    while (!operation_.Status.Idle()) {
        SoundFileCompanion::Samples block;
        companion_.ReadBlock(FramesPerBlock(document_.Format.Frequency), block);
        const automation::ArrayView<std::int16_t> samples(block.Get());
        if (samples.Elements().size() < 2) break;
        if (!target_.Stream().Write(std::as_bytes(samples.Elements()))) return FailFileAccess();
        presentation_.Observer.Block(std::as_bytes(samples.Elements()));
        read_ = read_ + Bytes(static_cast<std::int64_t>(samples.Elements().size_bytes()));
        if (!Report(PercentDone())) return false;
    }
    presentation_.Observer.EndLoading();
    return Report(100);
}

// Never 100: that is for the end.
int DocumentLoader::PercentDone() const {
    const auto expected = static_cast<double>(std::max<std::int64_t>(expected_.Count(), 1));
    return static_cast<int>(std::min(0.9999, static_cast<double>(read_.Count()) / expected) * 100);
}

bool DocumentLoader::Report(int percent) {
    presentation_.View.ShowProgress(percent);
    operation_.Events.BlockOperation(percent);
    if (!ticket_.IsCurrent()) return false;
    presentation_.View.Redraw();
    return ticket_.IsCurrent();
}

bool DocumentLoader::PushDocument() {
    if (!target_.PushTo(document_.History, document_.Format)) return FailFileAccess();
    ticket_.Moved();
    return true;
}

bool DocumentLoader::LengthIsAsExpected() const {
    const Bytes written = document_.History.Current()->TotalBytes;
    return std::abs((written - expected_).Count()) <= written.Count() / 100;
}

}  // namespace mavrin2::editor
