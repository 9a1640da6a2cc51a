#include "control/editor/document_loader.h"

#include <algorithm>
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
        complete = filling_.Begin(expected_) && ReadBlocks() && filling_.Push() &&
                   !operation_.Status.Idle();
        if (!ticket_.IsCurrent()) {
            if (companion_.Session() == session) companion_.CloseFile();
            return;
        }
    }
    companion_.CloseFile();
    if (document_.History.Current() && !(complete && filling_.LengthIsAsExpected())) {
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

bool DocumentLoader::ReadBlocks() {
    while (!operation_.Status.Idle()) {
        SoundFileCompanion::Samples block;
        companion_.ReadBlock(FramesPerBlock(document_.Format.Frequency), block);
        const automation::ArrayView<std::int16_t> samples(block.Get());
        if (samples.Elements().size() < 2) break;
        if (!filling_.Append(samples.Elements())) return false;
        // Never 100: that is for the end.
        const double part = std::min(0.9999, filling_.PartDone());
        if (!filling_.Report(static_cast<int>(part * 100))) return false;
    }
    return filling_.End();
}

}  // namespace mavrin2::editor
