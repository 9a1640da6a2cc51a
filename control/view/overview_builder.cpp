#include "control/view/overview_builder.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "control/editor/wave_stream.h"

namespace mavrin2::view {

namespace {

constexpr std::int64_t kSecondsPerChunk = 10;
// What is read and looked at while the processor's cache still has it.
constexpr std::size_t kPiece = std::size_t{256} * 1024;

// The samples of whole frames, whose bytes begin at an even address: those of a work file's block.
std::span<const std::int16_t> AsSamples(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const std::int16_t*>(bytes.data()), bytes.size() / 2};
}

}  // namespace

ChunkedFiller::ChunkedFiller(OverviewSummary& summary, std::int32_t channels, Bytes total,
                             std::int64_t stride, std::int64_t chunk)
    : filler_(summary, channels, total, stride),
      frame_(std::int64_t{channels} * 2),
      stride_(stride),
      chunk_(chunk) {}

void ChunkedFiller::Add(std::span<const std::byte> samples) {
    if (chunk_ == 0) chunkStart_ = seen_;
    const auto frame = static_cast<std::size_t>(frame_);
    if (!begun_.empty()) {
        const std::size_t missing = std::min(frame - begun_.size(), samples.size());
        begun_.insert(begun_.end(), samples.begin(),
                      samples.begin() + static_cast<std::ptrdiff_t>(missing));
        samples = samples.subspan(missing);
        if (begun_.size() < frame) return;
        AddFrames(begun_);
        begun_.clear();
    }
    while (samples.size() >= frame) {
        std::size_t size = samples.size() / frame * frame;
        if (chunk_ > 0) {
            if (seen_ - chunkStart_ >= chunk_) chunkStart_ = seen_;
            size = std::min(size, static_cast<std::size_t>(chunk_ - (seen_ - chunkStart_)));
        }
        AddFrames(samples.first(size));
        samples = samples.subspan(size);
    }
    begun_.assign(samples.begin(), samples.end());
}

// All of one chunk.
void ChunkedFiller::AddFrames(std::span<const std::byte> frames) {
    const std::int64_t into = (seen_ - chunkStart_) / frame_;
    const std::int64_t first = (stride_ - into % stride_) % stride_;
    if (reinterpret_cast<std::uintptr_t>(frames.data()) % alignof(std::int16_t) == 0) {
        filler_.Add(AsSamples(frames), seen_, first);
    } else {
        std::vector<std::int16_t> aligned(frames.size() / 2);
        std::memcpy(aligned.data(), frames.data(), frames.size());
        filler_.Add(aligned, seen_, first);
    }
    seen_ += static_cast<std::int64_t>(frames.size());
}

std::int32_t OverviewBuilder::LengthFor(Bytes total) const {
    const std::int64_t factor = area_.WaveWidth < 1 ? 1 : OverviewSummary::FactorOf(total);
    return factor < 2 ? 0 : static_cast<std::int32_t>(factor * area_.WaveWidth);
}

std::int64_t OverviewBuilder::StrideFor(Bytes total, std::int32_t length) const {
    const std::int64_t channels = services_.Document.Format.Channels;
    const std::int64_t frame = channels * 2;
    return std::max<std::int64_t>((total.Count() + frame) / length / (channels * 1000) * frame, 1);
}

std::int64_t OverviewBuilder::ChunkSize() const {
    return std::max<std::int64_t>(services_.Document.Format.Frequency, 1) * kSecondsPerChunk *
           services_.Document.Format.FrameSize().Count();
}

OverviewBuilder::Recording::Recording(std::int32_t length, std::int32_t channels, Bytes total,
                                      std::int64_t stride, std::int64_t chunk)
    : Total(total), Filler(Summary, channels, total, stride, chunk) {
    Summary.Resize(length, channels);
    Summary.Clear();
}

std::unique_ptr<OverviewBuilder::Recording> OverviewBuilder::NewRecording(
    std::int32_t length, Bytes total, std::int64_t stride, std::int64_t chunk) const {
    try {
        return std::make_unique<Recording>(length, services_.Document.Format.Channels, total,
                                           stride, chunk);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

class OverviewBuilder::Run {
public:
    Run(OverviewBuilder& builder, const editor::DocumentState& document)
        : services_(builder.services_),
          ticket_(editor::OperationTicket::Observe(services_.Operation.Counter,
                                                   services_.Document.History)),
          workFile_(document.WorkFilePath),
          total_(document.TotalBytes),
          channels_(services_.Document.Format.Channels),
          chunk_(builder.ChunkSize()) {}

    const editor::OperationTicket& Ticket() const { return ticket_; }

    // Fills `summary`, unless the file cannot be read. False then, and when a host has overtaken
    // the run in an event.
    bool FillFromWorkFile(OverviewSummary& summary, std::int64_t stride) {
        editor::WaveStream stream(services_.Files);
        if (!stream.Open(workFile_, editor::WaveStream::Mode::Read)) return false;
        summary.Clear();
        ChunkedFiller filler(summary, channels_, total_, stride, chunk_);
        std::vector<std::byte> piece(kPiece);
        std::int64_t done = 0;
        for (bool more = true; more && done < total_.Count();) {
            const std::int64_t end = std::min(done + chunk_, total_.Count());
            const std::int64_t before = done;
            while (done < end) {
                const auto wanted =
                    static_cast<std::size_t>(std::min<std::int64_t>(end - done, kPiece));
                const auto read = stream.Read(std::span(piece).first(wanted));
                more = read && *read > 0;
                if (!more) break;
                filler.Add(std::span(piece).first(*read));
                done += *read;
            }
            if (done > before && !Report(done)) return false;
        }
        return true;
    }

    // Raises the events that filling from the work file would. False when a host has overtaken it.
    bool ReportChunks() {
        for (std::int64_t done = 0; done < total_.Count();) {
            done = std::min(done + chunk_, total_.Count());
            if (!Report(done)) return false;
        }
        return true;
    }

private:
    bool Report(std::int64_t done) {
        const double part = static_cast<double>(done) / static_cast<double>(total_.Count());
        services_.Operation.Events.BlockOperation(static_cast<int>(std::min(part, 1.0) * 100));
        return ticket_.IsCurrent();
    }

    const ViewServices& services_;
    const editor::OperationTicket ticket_;
    const std::filesystem::path workFile_;
    const Bytes total_;
    const std::int32_t channels_;
    const std::int64_t chunk_;
};

void OverviewBuilder::Free() {
    summary_ = std::make_shared<OverviewSummary>();
    recording_.reset();
    version_.reset();
}

void OverviewBuilder::Build() {
    const editor::DocumentState* document = services_.Document.History.Current();
    if (!document) return;
    const auto version = std::exchange(version_, nullptr);
    const Bytes total = document->TotalBytes;
    const std::int32_t length = LengthFor(total);
    Run run(*this, *document);
    editor::StatusGuard status(services_.Operation.Status, run.Ticket(),
                               editor::StatusConstants::BuildingOverview);
    bool built = false;
    if (length == 0) {
        summary_ = std::make_shared<OverviewSummary>();
    } else if (version && version->Total == total && version->Summary.Length == length) {
        summary_ = std::make_shared<OverviewSummary>(std::move(version->Summary));
        built = run.ReportChunks();
    } else {
        try {
            const auto summary = std::make_shared<OverviewSummary>(*summary_);
            summary->Resize(length, services_.Document.Format.Channels);
            summary_ = summary;
            built = run.FillFromWorkFile(*summary, StrideFor(total, length));
        } catch (const std::bad_alloc&) {
            summary_ = std::make_shared<OverviewSummary>();
        }
    }
    if (!run.Ticket().IsCurrent()) return;
    status.End();
    if (built) services_.Operation.Events.EndOperation();
}

void OverviewBuilder::Report() {
    const editor::DocumentState* document = services_.Document.History.Current();
    if (!document || LengthFor(document->TotalBytes) == 0) return;
    Run run(*this, *document);
    editor::StatusGuard status(services_.Operation.Status, run.Ticket(),
                               editor::StatusConstants::BuildingOverview);
    if (!run.ReportChunks()) return;
    status.End();
    services_.Operation.Events.EndOperation();
}

void OverviewBuilder::BeginLoading(Bytes expected) {
    Free();
    const std::int32_t length = LengthFor(expected);
    if (length == 0) return;
    const std::int32_t channels = services_.Document.Format.Channels;
    const std::int64_t stride =
        std::max<std::int64_t>((expected.Count() + 2 * std::int64_t{channels}) / length / 400, 1);
    // Each block is looked at from its own beginning.
    recording_ = NewRecording(length, expected, stride, 0);
}

void OverviewBuilder::BeginVersion(Bytes length) {
    recording_.reset();
    const std::int32_t entries = LengthFor(length);
    if (entries == 0 || services_.Document.Steps.BatchMode) return;
    recording_ = NewRecording(entries, length, StrideFor(length, entries), ChunkSize());
}

void OverviewBuilder::Block(std::span<const std::byte> samples) {
    if (recording_) recording_->Filler.Add(samples);
}

void OverviewBuilder::EndLoading() {
    const auto loaded = std::exchange(recording_, nullptr);
    if (!loaded) return;
    summary_ = std::make_shared<OverviewSummary>(std::move(loaded->Summary));
    summary_->Length = static_cast<std::int32_t>(loaded->Filler.LastEntry() + 1);
}

void OverviewBuilder::EndVersion(bool complete) {
    auto version = std::exchange(recording_, nullptr);
    // In a batch, other versions may follow before the summary is built.
    if (complete && version && version->Filler.Seen() == version->Total &&
        !services_.Document.Steps.BatchMode)
        version_ = std::move(version);
}

}  // namespace mavrin2::view
