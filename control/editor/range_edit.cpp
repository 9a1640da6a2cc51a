#include "control/editor/range_edit.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "control/editor/block_copy.h"

namespace mavrin2::editor {

RangeEdit::RangeEdit(const Document& document, const Operation& operation, const Storage& storage,
                     const Presentation& presentation, StatusConstants value)
    : document_(document),
      operation_(operation),
      storage_(storage),
      presentation_(presentation),
      value_(value),
      ticket_(operation.Counter, document.History),
      status_(operation.Status, ticket_),
      source_(storage.Files),
      target_(storage.Files),
      selectionStart_(document.History.Current()->Level().StartSelect),
      selectionEnd_(document.History.Current()->Level().EndSelect) {}

RangeEdit::~RangeEdit() {
    Abandon();
}

bool RangeEdit::BeginEdit(std::optional<Bytes> replacement) {
    status_.Set(value_);
    if (!Open()) return FailBegin();
    if (replacement) {
        presentation_.Observer.BeginVersion(Bytes(source_.Length()) -
                                            (selectionEnd_ - selectionStart_) + *replacement);
        target_.SetObserver(&presentation_.Observer);
    }
    const std::int64_t head = selectionStart_.Count();
    switch (CopyBlocks(source_, target_, head, BlockSize(storage_.Settings, source_, head), buffer_,
                       [this] { return ReportBlock(); })) {
        case CopyEnd::Complete:
            return true;
        case CopyEnd::Stopped:
        case CopyEnd::Failed:
            break;
    }
    return FailBegin();
}

bool RangeEdit::Open() {
    const DocumentFormat& format = document_.Format;
    targetPath_ = storage_.Temporary.MakeTempFileName();
    return source_.Open(document_.History.Current()->WorkFilePath, WaveStream::Mode::Read) &&
           !targetPath_.empty() && target_.Create(targetPath_, format.Frequency, format.Channels);
}

bool RangeEdit::ReportBlock() {
    operation_.Events.BlockOperation(PercentRead(source_));
    return ticket_.IsCurrent() && !operation_.Status.Idle();
}

bool RangeEdit::CommitEdit() {
    status_.Set(value_);
    const Carried carried = TakeCarried();
    const std::int64_t tail = source_.Length() - selectionEnd_.Count();
    const CopyEnd end = CopyBlocks(source_, target_, std::numeric_limits<std::int64_t>::max(),
                                   BlockSize(storage_.Settings, source_, tail), buffer_,
                                   [this] { return ReportBlock(); });
    if (end != CopyEnd::Complete) return FailCommit();

    source_.Close();
    const Bytes total(target_.Length());
    if (!target_.Close()) return FailCommit();
    presentation_.Observer.EndVersion(true);
    status_.End();

    auto state = std::make_unique<DocumentState>();
    state->WorkFilePath = targetPath_;
    state->TotalBytes = total;
    state->Frequency = document_.Format.Frequency;
    state->Channels = document_.Format.Channels;
    document_.History.PushState(std::move(state));
    targetPath_.clear();  // it belongs to the history now
    ticket_.Moved();

    CarryOver(carried);
    if (!ShowNewState()) return true;
    operation_.Events.BlockOperation(100);
    if (ticket_.IsCurrent()) operation_.Events.EndOperation();
    return true;
}

RangeEdit::Carried RangeEdit::TakeCarried() const {
    const DocumentState& state = *document_.History.Current();
    // Lengths are counted in 32 bits, as everything that hosts see.
    return {state.Level(), state.Selected != 0, state.ZoomIndex > 0,
            static_cast<std::int32_t>(
                (selectionEnd_ - selectionStart_ + document_.Format.FrameSize()).Count()),
            static_cast<std::int32_t>(target_.Length() - selectionStart_.Count())};
}

void RangeEdit::CarryOver(const Carried& carried) {
    DocumentState& state = *document_.History.Current();
    const Bytes grown(std::int64_t{carried.Written} - carried.Replaced);
    state.Zoom[0].StartView = Bytes(0);
    state.Zoom[0].EndView = state.TotalBytes;
    if (carried.Zoomed) {
        state.ZoomIndex = 1;
        state.Zoom[1].StartView = state.Zoom[0].StartSelect = carried.View.StartView;
        state.Zoom[1].EndView = state.Zoom[0].EndSelect = carried.View.EndView + grown;
    }
    state.Level().StartSelect = selectionStart_;
    state.Level().EndSelect = std::max(selectionEnd_ + grown, Bytes(0));
    if (carried.Selected && carried.Written > 0) state.Selected = 1;
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
    return ticket_.IsCurrent();
}

void RangeEdit::Abandon() {
    if (!targetPath_.empty()) presentation_.Observer.EndVersion(false);
    source_.Close();
    target_.Close();
    storage_.Temporary.Remove(targetPath_);
    targetPath_.clear();
}

bool RangeEdit::FailBegin() {
    Abandon();
    if (!ticket_.IsCurrent()) return false;
    status_.End();
    operation_.Events.EndOperation();
    return false;
}

bool RangeEdit::FailCommit() {
    status_.End();
    Abandon();
    if (!ticket_.IsCurrent()) return false;
    operation_.Events.BlockOperation(100);
    if (ticket_.IsCurrent()) operation_.Events.EndOperation();
    return false;
}

}  // namespace mavrin2::editor
