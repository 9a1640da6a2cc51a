#include "control/editor/range_edit.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "control/editor/block_copy.h"

namespace mavrin2::editor {

RangeEdit::RangeEdit(EditorServices& services, StatusConstants status)
    : services_(services),
      status_(status),
      ticket_(services.Operations, services.History),
      source_(services.Files),
      target_(services.Files),
      selectionStart_(services.History.Current()->Level().StartSelect),
      selectionEnd_(services.History.Current()->Level().EndSelect) {}

RangeEdit::~RangeEdit() {
    Abandon();
}

bool RangeEdit::BeginEdit(std::optional<Bytes> replacement) {
    services_.Status.Status = status_;
    if (!Open()) return FailBegin();
    if (replacement) {
        services_.Observer.BeginVersion(Bytes(source_.Length()) -
                                        (selectionEnd_ - selectionStart_) + *replacement);
        target_.SetObserver(&services_.Observer);
    }
    const std::int64_t head = selectionStart_.Count();
    switch (CopyBlocks(source_, target_, head, BlockSize(services_.Settings, source_, head),
                       buffer_, [this] { return ReportBlock(); })) {
        case CopyEnd::Complete:
            services_.Status.Status = StatusConstants::Idle;
            return true;
        case CopyEnd::Stopped:
        case CopyEnd::Failed:
            break;
    }
    return FailBegin();
}

bool RangeEdit::Open() {
    const DocumentFormat& format = services_.Format;
    targetPath_ = services_.Temporary.MakeTempFileName();
    return source_.Open(services_.History.Current()->WorkFilePath, WaveStream::Mode::Read) &&
           !targetPath_.empty() && target_.Create(targetPath_, format.Frequency, format.Channels);
}

bool RangeEdit::ReportBlock() {
    services_.Events.BlockOperation(PercentRead(source_));
    return ticket_.IsCurrent() && !services_.Status.Idle();
}

bool RangeEdit::CommitEdit() {
    services_.Status.Status = status_;
    const Carried carried = TakeCarried();
    const std::int64_t tail = source_.Length() - selectionEnd_.Count();
    const CopyEnd end = CopyBlocks(source_, target_, std::numeric_limits<std::int64_t>::max(),
                                   BlockSize(services_.Settings, source_, tail), buffer_,
                                   [this] { return ReportBlock(); });
    if (end != CopyEnd::Complete) return FailCommit();

    source_.Close();
    const Bytes total(target_.Length());
    if (!target_.Close()) return FailCommit();
    services_.Observer.EndVersion(true);
    services_.Status.Status = StatusConstants::Idle;

    auto state = std::make_unique<DocumentState>();
    state->WorkFilePath = targetPath_;
    state->TotalBytes = total;
    state->Frequency = services_.Format.Frequency;
    state->Channels = services_.Format.Channels;
    services_.History.PushState(std::move(state));
    targetPath_.clear();  // it belongs to the history now
    ticket_.Moved();

    CarryOver(carried);
    if (!ShowNewState()) return true;
    services_.Events.BlockOperation(100);
    if (ticket_.IsCurrent()) services_.Events.EndOperation();
    return true;
}

RangeEdit::Carried RangeEdit::TakeCarried() const {
    const DocumentState& state = *services_.History.Current();
    // Lengths are counted in 32 bits, as everything that hosts see.
    return {state.Level(), state.Selected != 0, state.ZoomIndex > 0,
            static_cast<std::int32_t>(
                (selectionEnd_ - selectionStart_ + services_.Format.FrameSize()).Count()),
            static_cast<std::int32_t>(target_.Length() - selectionStart_.Count())};
}

void RangeEdit::CarryOver(const Carried& carried) {
    DocumentState& state = *services_.History.Current();
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
    if (services_.Settings.BatchMode) {
        ++services_.Settings.LastStepCount;
        return true;
    }
    services_.Settings.LastStepCount = 1;
    services_.View.BuildOverviewSummary();
    if (!ticket_.IsCurrent()) return false;
    services_.Range.RecomputeView();
    if (!ticket_.IsCurrent()) return false;
    services_.View.Redraw();
    return ticket_.IsCurrent();
}

void RangeEdit::Abandon() {
    if (!targetPath_.empty()) services_.Observer.EndVersion(false);
    source_.Close();
    target_.Close();
    services_.Temporary.Remove(targetPath_);
    targetPath_.clear();
}

bool RangeEdit::FailBegin() {
    Abandon();
    if (!ticket_.IsCurrent()) return false;
    services_.Status.Status = StatusConstants::Idle;
    services_.Events.EndOperation();
    return false;
}

bool RangeEdit::FailCommit() {
    if (ticket_.IsCurrent()) services_.Status.Status = StatusConstants::Idle;
    Abandon();
    if (!ticket_.IsCurrent()) return false;
    services_.Events.BlockOperation(100);
    if (ticket_.IsCurrent()) services_.Events.EndOperation();
    return false;
}

}  // namespace mavrin2::editor
