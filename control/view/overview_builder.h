#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "control/editor/ports.h"
#include "control/view/geometry.h"
#include "control/view/overview_summary.h"
#include "control/view/view_services.h"

namespace mavrin2::view {

// Looks at the frames of a sound that arrives in blocks of any length, as if it came in chunks of a
// given size: the frames that are looked at are counted from each chunk's beginning.
class ChunkedFiller {
public:
    // `chunk` is in bytes; 0: each block is a chunk.
    ChunkedFiller(OverviewSummary& summary, std::int32_t channels, Bytes total, std::int64_t stride,
                  std::int64_t chunk);

    void Add(std::span<const std::byte> samples);

    Bytes Seen() const { return Bytes(seen_); }
    std::int64_t LastEntry() const { return filler_.LastEntry(); }

private:
    void AddFrames(std::span<const std::byte> frames);

    SummaryFiller filler_;
    std::int64_t frame_;   // bytes
    std::int64_t stride_;  // frames
    std::int64_t chunk_;
    std::int64_t chunkStart_ = 0;
    std::int64_t seen_ = 0;         // bytes
    std::vector<std::byte> begun_;  // of a frame that continues in the next block
};

// Makes and keeps the overview summary of the document, by reading its work file or from what it
// has seen of it on its way there. Every run owns what it fills: a host that has the summary freed
// or built again from inside an event leaves a run that is still active its own arrays.
class OverviewBuilder final : public editor::BlockObserver {
public:
    OverviewBuilder(const ViewServices& services, const Geometry& area)
        : services_(services), area_(area) {}

    // Partly filled while it is built.
    const OverviewSummary& Summary() const { return *summary_; }

    // For the open document. Raises BlockOperation and EndOperation; sets the status meanwhile.
    void Build();
    // Raises the events of building where the summary is already that of the document.
    void Report();
    void Free();

    void BeginLoading(Bytes expected) override;
    void BeginVersion(Bytes length) override;
    void Block(std::span<const std::byte> samples) override;
    void EndLoading() override;
    void EndVersion(bool complete) override;

private:
    // One building of the summary, from beginning to end.
    class Run;

    // A sound that passes by in blocks.
    struct Recording {
        Recording(std::int32_t length, std::int32_t channels, Bytes total, std::int64_t stride,
                  std::int64_t chunk);
        Recording(const Recording&) = delete;
        Recording& operator=(const Recording&) = delete;

        OverviewSummary Summary;
        Bytes Total;
        ChunkedFiller Filler;  // into Summary
    };

    std::int32_t LengthFor(Bytes total) const;
    std::int64_t StrideFor(Bytes total, std::int32_t length) const;
    std::int64_t ChunkSize() const;
    // Null where memory is short.
    std::unique_ptr<Recording> NewRecording(std::int32_t length, Bytes total, std::int64_t stride,
                                            std::int64_t chunk) const;

    const ViewServices& services_;
    const Geometry& area_;
    std::shared_ptr<OverviewSummary> summary_ = std::make_shared<OverviewSummary>();
    std::unique_ptr<Recording> recording_;  // while blocks pass by
    std::unique_ptr<Recording> version_;  // all of a version that Build has not been asked for yet
};

}  // namespace mavrin2::view
