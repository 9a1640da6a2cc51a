#include "control/view/overview_builder.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

#include "control/editor/wave_stream.h"

namespace mavrin2::view {

using editor::StatusConstants;

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

void OverviewBuilder::Free() {
    summary_.Free();
    seen_ = SeenVersion();
    filler_.reset();
}

void OverviewBuilder::Build() {
    const editor::DocumentState* document = services_.Document.History.Current();
    if (!document) return;
    const auto ticket =
        editor::OperationTicket::Observe(services_.Operation.Counter, services_.Document.History);
    editor::StatusGuard status(services_.Operation.Status, ticket,
                               StatusConstants::BuildingOverview);
    const Source source{document->WorkFilePath, document->TotalBytes,
                        LengthFor(document->TotalBytes)};
    bool built = false;
    if (source.Length == 0) {
        summary_.Free();
    } else {
        try {
            built = TakeSeenVersion(source) ? ReportChunks(source, ticket)
                                            : FillFromWorkFile(source, ticket);
        } catch (const std::bad_alloc&) {
            summary_.Free();
        }
    }
    seen_ = SeenVersion();
    if (!ticket.IsCurrent()) return;
    status.End();
    if (built) services_.Operation.Events.EndOperation();
}

bool OverviewBuilder::TakeSeenVersion(const Source& source) {
    if (!seen_.Complete || seen_.Total != source.Total || seen_.Summary.Length != source.Length)
        return false;
    summary_ = std::move(seen_.Summary);
    return true;
}

bool OverviewBuilder::FillFromWorkFile(const Source& source,
                                       const editor::OperationTicket& ticket) {
    summary_.Resize(source.Length, services_.Document.Format.Channels);
    editor::WaveStream stream(services_.Files);
    if (!stream.Open(source.WorkFile, editor::WaveStream::Mode::Read)) return false;
    summary_.Clear();
    const std::int64_t chunk = ChunkSize();
    ChunkedFiller filler(summary_, services_.Document.Format.Channels, source.Total,
                         StrideFor(source.Total, source.Length), chunk);
    std::vector<std::byte> piece(kPiece);
    std::int64_t done = 0;
    for (bool more = true; more && done < source.Total.Count();) {
        const std::int64_t end = std::min(done + chunk, source.Total.Count());
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
        if (done > before && !ReportChunk(done, source, ticket)) return false;
    }
    return true;
}

bool OverviewBuilder::ReportChunks(const Source& source, const editor::OperationTicket& ticket) {
    for (std::int64_t done = 0; done < source.Total.Count();) {
        done = std::min(done + ChunkSize(), source.Total.Count());
        if (!ReportChunk(done, source, ticket)) return false;
    }
    return true;
}

bool OverviewBuilder::ReportChunk(std::int64_t done, const Source& source,
                                  const editor::OperationTicket& ticket) {
    const double part = static_cast<double>(done) / static_cast<double>(source.Total.Count());
    services_.Operation.Events.BlockOperation(static_cast<int>(std::min(part, 1.0) * 100));
    return ticket.IsCurrent();
}

void OverviewBuilder::BeginLoading(Bytes expected) {
    Free();
    const std::int32_t length = LengthFor(expected);
    if (length == 0) return;
    const std::int32_t channels = services_.Document.Format.Channels;
    try {
        summary_.Resize(length, channels);
        summary_.Clear();
    } catch (const std::bad_alloc&) {
        summary_.Free();
        return;
    }
    const std::int64_t stride =
        std::max<std::int64_t>((expected.Count() + 2 * std::int64_t{channels}) / length / 400, 1);
    // Each block is looked at from its own beginning.
    filler_.emplace(summary_, channels, expected, stride, 0);
}

void OverviewBuilder::BeginVersion(Bytes length) {
    seen_ = SeenVersion();
    filler_.reset();
    const std::int32_t entries = LengthFor(length);
    if (entries == 0 || services_.Document.Steps.BatchMode) return;
    const std::int32_t channels = services_.Document.Format.Channels;
    try {
        seen_.Summary.Resize(entries, channels);
        seen_.Summary.Clear();
    } catch (const std::bad_alloc&) {
        seen_ = SeenVersion();
        return;
    }
    seen_.Total = length;
    filler_.emplace(seen_.Summary, channels, length, StrideFor(length, entries), ChunkSize());
}

void OverviewBuilder::Block(std::span<const std::byte> samples) {
    if (filler_) filler_->Add(samples);
}

void OverviewBuilder::EndLoading() {
    if (!filler_) return;
    summary_.Length = static_cast<std::int32_t>(filler_->LastEntry() + 1);
    filler_.reset();
}

void OverviewBuilder::EndVersion(bool complete) {
    seen_.Complete = complete && filler_ && filler_->Seen() == seen_.Total;
    filler_.reset();
}

}  // namespace mavrin2::view
