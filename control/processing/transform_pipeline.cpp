#include "control/processing/transform_pipeline.h"

#include <algorithm>
#include <array>
#include <new>
#include <vector>

namespace mavrin2::processing {

using editor::EditRegion;
using editor::ErrorConstants;
using editor::RangeEdit;
using editor::StatusConstants;
using signal::Bytes;

namespace {

ErrorConstants ErrorOf(HRESULT status) {
    return status == E_OUTOFMEMORY ? ErrorConstants::MEMORY : ErrorConstants::UNEXPECTED;
}

// The companion's smoothing, on while a transform runs, if the host wants it.
class Smoothing {
public:
    Smoothing(TransformCompanion& companion, bool wanted) : companion_(companion), on_(wanted) {
        if (on_) companion_.SetSmoothing(true);
    }
    Smoothing(const Smoothing&) = delete;
    Smoothing& operator=(const Smoothing&) = delete;
    ~Smoothing() {
        if (on_) companion_.SetSmoothing(false);
    }

private:
    TransformCompanion& companion_;
    bool on_;
};

}  // namespace

void TransformPipeline::MixStereoChannels(float leftToLeft, float leftToRight, float rightToLeft,
                                          float rightToRight) {
    if (document_.Format.Channels != 2) return;
    Run(operations::MixStereoChannels, leftToLeft, leftToRight, rightToLeft, rightToRight);
}

void TransformPipeline::Trim(float decibels, float fadeTime, TrimConstants ends) {
    Run(StatusConstants::Trim, BlockKind::Whole,
        [&](SAFEARRAY** block, const Cancelled& cancelled) -> HRESULT {
            HRESULT status = S_OK;
            if (ends != TrimConstants::TRIM_RIGHT)
                status = companion_.Operations().TrimStart(block, decibels, fadeTime);
            if (ends != TrimConstants::TRIM_LEFT && SUCCEEDED(status) && !cancelled())
                status = companion_.Operations().TrimEnd(block, decibels, fadeTime);
            return status;
        });
}

void TransformPipeline::DeleteSilence(float decibels, float attackTime, float releaseTime) {
    Run(StatusConstants::DeleteSilence, BlockKind::Whole, [&](SAFEARRAY** block, const Cancelled&) {
        companion_.Operations().put_SetChannelCount(document_.Format.Channels);
        const HRESULT status =
            companion_.Operations().DeleteSilence(block, decibels, attackTime, releaseTime);
        companion_.Operations().put_SetChannelCount(1);
        return status;
    });
}

EditRegion TransformPipeline::SelectedRegion() const {
    const editor::DocumentState& state = *document_.History.Current();
    // The frame at the selection's end is part of the region, unless the document ends before it.
    const Bytes end =
        std::min(state.Level().EndSelect + document_.Format.FrameSize(), state.TotalBytes);
    const Bytes start = state.Level().StartSelect;
    return {start, std::max(start, end)};
}

void TransformPipeline::Run(StatusConstants status, BlockKind blocks, const Process& process) {
    if (!editor::Ready(document_, operation_)) return;
    const editor::DocumentState& state = *document_.History.Current();
    if (!state.Selected || document_.Channels.OperationCount < 1) return;
    // An operation that was cancelled has not returned from the companion yet.
    if (companion_.Progress().IsInPasses()) return;
    operation_.Status.LastError = ErrorConstants::NOERRORS;

    const EditRegion region = SelectedRegion();
    RangeEdit edit(document_, operation_, storage_, presentation_, status, region,
                   region.End - region.Start);
    if (edit.BeginEdit() && WriteProcessed(edit, blocks, process)) edit.CommitEdit();
}

bool TransformPipeline::WriteProcessed(RangeEdit& edit, BlockKind blocks, const Process& process) {
    const editor::DocumentState& state = *document_.History.Current();
    const Bytes start = edit.Region().Start;
    const Bytes length = edit.Region().End - start;
    const bool split = blocks != BlockKind::Whole && document_.Format.Channels == 2;
    TransformProgress::Passes passes(companion_.Progress(), edit, start,
                                     state.Level().EndSelect - start, state.TotalBytes,
                                     split ? document_.Channels.OperationCount : 1);
    const Smoothing smoothing(companion_, storage_.Settings.SmoothEnabled != 0);
    try {
        TransformRegion samples(length, split, storage_.Memory);
        if (!samples.Load(edit.Source())) return edit.AbandonEdit(ErrorConstants::FILEACCESS);
        const HRESULT status = ProcessBlocks(samples, blocks, process, passes, edit);
        if (!edit.IsRunning()) return edit.AbandonEdit();
        if (FAILED(status)) return edit.AbandonEdit(ErrorOf(status));
        if (!samples.IsValid()) return edit.AbandonEdit(ErrorConstants::UNEXPECTED);
        if (!samples.Write(edit.Target())) return edit.AbandonEdit(ErrorConstants::FILEACCESS);
    } catch (const std::bad_alloc&) {
        return edit.AbandonEdit(ErrorConstants::MEMORY);
    }
    return true;
}

HRESULT TransformPipeline::ProcessBlocks(TransformRegion& region, BlockKind blocks,
                                         const Process& process, TransformProgress::Passes& passes,
                                         const RangeEdit& edit) {
    const Cancelled cancelled = [&edit] { return !edit.IsRunning(); };
    if (region.BlockCount() == 1) return process(region.Block(0), cancelled);

    std::array<bool, 2> wanted = {true, true};
    if (blocks == BlockKind::PerChannel)
        for (std::size_t i = 0; i < wanted.size(); ++i)
            wanted[i] = document_.Channels.Operation[i] != 0;
    HRESULT status = S_OK;
    for (std::size_t i = 0; i < wanted.size() && SUCCEEDED(status) && !cancelled(); ++i) {
        if (!wanted[i]) continue;
        status = process(region.Block(i), cancelled);
        passes.Next();
    }
    return status;
}

void TransformPipeline::InsertSilence(std::int32_t milliseconds) {
    if (!editor::Ready(document_, operation_)) return;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    const editor::DocumentState& state = *document_.History.Current();
    const Bytes start = state.Level().StartSelect;
    const Bytes end = state.Selected ? state.Level().EndSelect : start;
    // Counted in single samples, so in stereo the last frame may be half a one.
    const auto samples = static_cast<std::int64_t>(
        milliseconds / 1000.0 * document_.Format.Frequency * document_.Format.Channels);
    const std::int64_t length = std::max<std::int64_t>(samples * 2, 0);

    RangeEdit edit(document_, operation_, storage_, presentation_, StatusConstants::InsertSilence,
                   {start, std::max(start, end)}, Bytes(length));
    if (!edit.BeginEdit()) return;
    const std::vector<std::byte> zeros(
        static_cast<std::size_t>(std::min<std::int64_t>(length, 1 << 20)));
    for (std::int64_t left = length; left > 0;) {
        const auto count = std::min<std::size_t>(zeros.size(), static_cast<std::size_t>(left));
        if (!edit.Target().Write(std::span(zeros).first(count))) {
            edit.AbandonEdit(ErrorConstants::FILEACCESS);
            return;
        }
        left -= static_cast<std::int64_t>(count);
    }
    if (!edit.CommitEdit() || !edit.IsCurrent()) return;
    document_.History.Current()->Selected = 1;
    presentation_.View.UpdateSelectionColumns();
    presentation_.View.RenderBackground();
    presentation_.View.Redraw();
}

}  // namespace mavrin2::processing
