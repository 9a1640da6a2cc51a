#include "control/editor/range_edit.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "control/editor/block_copy.h"
#include "control/editor/markers/marker_events.h"

namespace mavrin2::editor {

namespace {

ErrorConstants ErrorOf(CopyEnd end) {
    return end == CopyEnd::Failed ? ErrorConstants::FILEACCESS : ErrorConstants::NOERRORS;
}

}  // namespace

RangeEdit::RangeEdit(const Document& document, const Operation& operation, const Storage& storage,
                     const Presentation& presentation, StatusConstants value,
                     const EditRegion& region, std::optional<Bytes> newLength)
    : document_(document),
      operation_(operation),
      storage_(storage),
      presentation_(presentation),
      value_(value),
      ticket_(operation.Counter, document.History),
      status_(operation.Status, ticket_),
      source_(storage.Files),
      target_(storage),
      buffer_(storage.Memory),
      region_(region),
      newLength_(newLength),
      selection_{document.History.Current()->Level().StartSelect,
                 document.History.Current()->Level().EndSelect} {}

RangeEdit::~RangeEdit() {
    Discard();
}

bool RangeEdit::BeginEdit() {
    status_.Set(value_);
    if (!Open()) return AbandonEdit(ErrorConstants::FILEACCESS);
    if (!buffer_.Take()) return AbandonEdit(ErrorConstants::MEMORY);
    const std::int64_t head = region_.Start.Count();
    const CopyEnd end =
        CopyBlocks(source_, Target(), head, BlockSize(storage_.Settings, source_, head), buffer_,
                   [this] { return ReportBlock(PercentRead(source_)); });
    return end == CopyEnd::Complete || AbandonEdit(ErrorOf(end));
}

bool RangeEdit::Open() {
    const DocumentState& version = *document_.History.Current();
    if (!source_.OpenWhole(version.WorkFilePath, version.TotalBytes) ||
        !target_.Create(document_.Format))
        return false;
    if (newLength_) {
        observed_ = true;
        presentation_.Observer.BeginVersion(version.TotalBytes - (region_.End - region_.Start) +
                                            *newLength_);
        Target().SetObserver(&presentation_.Observer);
    }
    return true;
}

bool RangeEdit::ReportBlock(int percent) {
    operation_.Events.BlockOperation(percent);
    return IsRunning();
}

bool RangeEdit::CommitEdit() {
    status_.Set(value_);
    const DocumentState* old = document_.History.Current();
    if (!ticket_.IsCurrent()) return FailCommit();
    const Carried carried{old->Level(), old->Selected || selectResult_, old->ZoomIndex > 0};
    const EditStretch stretch{region_.Start, region_.End, region_.Start, Bytes(Target().Length())};
    const CopyEnd end = CopyTail();
    if (end != CopyEnd::Complete) return FailCommit(ErrorOf(end));
    source_.Close();
    if (!target_.PushTo(document_.History, document_.Format))
        return FailCommit(ErrorConstants::FILEACCESS);
    ticket_.Moved();
    if (selectResult_) document_.History.Current()->Prev->Selected = 1;
    EndObservation(true);
    status_.End();

    CarryOver(carried, stretch);
    if (!ReportMarkers(operation_.Events, MoveMarkers(stretch), ticket_)) return true;
    if (!ShowNewState()) return true;
    operation_.Events.BlockOperation(100);
    if (ticket_.IsCurrent()) operation_.Events.EndOperation();
    return true;
}

CopyEnd RangeEdit::CopyTail() {
    source_.Seek(region_.End.Count());
    const std::int64_t tail = source_.Length() - selection_.End.Count();
    return CopyBlocks(source_, Target(), std::numeric_limits<std::int64_t>::max(),
                      BlockSize(storage_.Settings, source_, tail), buffer_,
                      [this] { return ReportBlock(PercentRead(source_)); });
}

void RangeEdit::CarryOver(const Carried& carried, const EditStretch& stretch) {
    DocumentState& state = *document_.History.Current();
    // Counted in 32 bits, as everything that hosts see. The frame at a selection's end counts as
    // selected here.
    const auto replaced = static_cast<std::int32_t>(
        (selection_.End - selection_.Start + document_.Format.FrameSize()).Count());
    const auto written = static_cast<std::int32_t>((stretch.NewEnd - stretch.NewStart).Count());
    const Bytes grown(std::int64_t{written} - replaced);
    ZoomLevel whole;
    whole.EndView = state.TotalBytes;
    if (carried.Zoomed) {
        ZoomLevel zoomed;
        zoomed.StartView = whole.StartSelect = carried.View.StartView;
        zoomed.EndView = whole.EndSelect = carried.View.EndView + grown;
        state.ZoomIndex = 1;
        state.Level() = zoomed;
    }
    state.Zoom[0] = whole;
    state.Level().StartSelect = selection_.Start;
    state.Level().EndSelect = std::max(selection_.End + grown, Bytes(0));
    if (carried.Selected && written > 0) state.Selected = 1;
}

std::vector<std::int32_t> RangeEdit::MoveMarkers(const EditStretch& stretch) {
    DocumentState& state = *document_.History.Current();
    state.Markers = state.Prev->Markers;
    return AdjustMarkersAfterEdit(state.Markers, stretch, document_.Format.FrameSize());
}

bool RangeEdit::ShowNewState() {
    if (document_.Steps.BatchMode) {
        ++document_.Steps.LastStepCount;
        return true;
    }
    document_.Steps.LastStepCount = 1;
    presentation_.View.BuildOverviewSummary();
    if (!ticket_.IsCurrent()) return false;
    presentation_.Range.RecomputeView();
    if (!ticket_.IsCurrent()) return false;
    presentation_.View.Redraw();
    if (!ticket_.IsCurrent()) return false;
    presentation_.Markers.RebuildDisplayList();
    return ticket_.IsCurrent();
}

void RangeEdit::EndObservation(bool complete) {
    if (observed_) presentation_.Observer.EndVersion(complete);
    observed_ = false;
}

void RangeEdit::Discard() {
    EndObservation(false);
    source_.Close();
    target_.Discard();
}

bool RangeEdit::AbandonEdit(ErrorConstants error) {
    Discard();
    if (!ticket_.IsCurrent()) return false;
    status_.End();
    if (error != ErrorConstants::NOERRORS) operation_.Status.LastError = error;
    operation_.Events.EndOperation();
    return false;
}

bool RangeEdit::FailCommit(ErrorConstants error) {
    Discard();
    if (!ticket_.IsCurrent()) return false;
    status_.End();
    if (error != ErrorConstants::NOERRORS) operation_.Status.LastError = error;
    operation_.Events.BlockOperation(100);
    if (ticket_.IsCurrent()) operation_.Events.EndOperation();
    return false;
}

}  // namespace mavrin2::editor
