#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "control/editor/block_copy.h"
#include "control/editor/markers/marker_moves.h"
#include "control/editor/new_work_file.h"
#include "control/editor/services.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {

// A stretch of the document, in bytes: [Start, End).
struct EditRegion {
    Bytes Start;
    Bytes End;
};

// One change of the document, as a transaction: the part before a region is copied into a new work
// file, the caller writes what replaces the region, the part after it is copied, and the new file
// becomes the current version. An edit that is not committed leaves document, history and disk as
// they were. The status is the edit's own from BeginEdit to the end.
class RangeEdit {
public:
    // `newLength` is that of the replacement where it is known beforehand: an observer can then
    // prepare for the new version while it is written.
    RangeEdit(const Document& document, const Operation& operation, const Storage& storage,
              const Presentation& presentation, StatusConstants value, const EditRegion& region,
              std::optional<Bytes> newLength = std::nullopt);
    RangeEdit(const RangeEdit&) = delete;
    RangeEdit& operator=(const RangeEdit&) = delete;
    ~RangeEdit();

    // Copies what comes before the region. Source() and Target() are then open, each at the
    // region's start. False when the edit has ended: it failed, was cancelled, or another operation
    // has taken its place.
    bool BeginEdit();

    // The caller writes the replacement here, from the version that is being replaced or elsewhere.
    WaveStream& Target() { return target_.Stream(); }
    WaveStream& Source() { return source_; }
    // For a replacement that uses up more of the old sound than was known beforehand.
    void SetEnd(Bytes end) { region_.End = end; }
    const EditRegion& Region() const { return region_; }
    // What was written is selected afterwards, and its place in the old version too.
    void SelectResult() { selectResult_ = true; }

    // Whether no other operation has taken its place.
    bool IsCurrent() const { return ticket_.IsCurrent(); }
    // Whether it has not been cancelled either.
    bool IsRunning() const { return IsCurrent() && !operation_.Status.Idle(); }
    // Raises BlockOperation. False when the edit was cancelled or another operation has taken its
    // place; after a cancellation CommitEdit keeps what was written.
    bool ReportBlock(int percent);

    // Copies what comes after the region and makes the new version current, with view, selection
    // and events as they follow. False when the edit has ended without a new version.
    bool CommitEdit();

    // Ends the edit without a new version, with an error unless it was cancelled. Always false.
    bool AbandonEdit(ErrorConstants error = ErrorConstants::NOERRORS);

private:
    // The selection and view of the old version.
    struct Carried {
        ZoomLevel View;
        bool Selected;
        bool Zoomed;
    };

    bool Open();
    CopyEnd CopyTail();
    void CarryOver(const Carried& carried, const EditStretch& stretch);
    // The numbers of those that have moved.
    std::vector<std::int32_t> MoveMarkers(const EditStretch& stretch);
    // False when a host has started something else meanwhile.
    bool ShowNewState();
    void EndObservation(bool complete);
    void Discard();
    bool FailCommit(ErrorConstants error = ErrorConstants::NOERRORS);

    Document document_;
    Operation operation_;
    Storage storage_;
    Presentation presentation_;
    StatusConstants value_;
    OperationTicket ticket_;
    StatusGuard status_;
    WaveStream source_;
    NewWorkFile target_;
    BlockBuffer buffer_;
    EditRegion region_;
    std::optional<Bytes> newLength_;
    EditRegion selection_;  // as it was at the beginning
    bool selectResult_ = false;
    bool observed_ = false;
};

}  // namespace mavrin2::editor
