#include "control/processing/recording.h"

#include <algorithm>
#include <utility>

#include "control/editor/block_buffer.h"
#include "control/editor/block_copy.h"
#include "control/editor/new_work_file.h"
#include "control/editor/wave_stream.h"
#include "control/signal/mul_div.h"

namespace mavrin2::processing {

using editor::DocumentState;
using editor::ErrorConstants;
using editor::RecordState;
using editor::StatusConstants;
using signal::Bytes;

namespace {

constexpr std::int32_t kUsualBuffer = 500;  // milliseconds
constexpr std::uint32_t kMostLoad = 80;     // percent of one processor

// A stretch of so many half seconds of 16-bit samples.
Bytes HalfSeconds(const editor::DocumentFormat& format, int count) {
    return Bytes(std::int64_t{format.Frequency} * format.Channels * count);
}

}  // namespace

void Recording::Record(RecordTypeConstants type) {
    if (!Ready(services_.Document, services_.Operation)) return;
    services_.Operation.Status.LastError = ErrorConstants::NOERRORS;
    processTimes_ = services_.Clock.TimesOfProcess();
    services_.State.VisualizationInUse = services_.State.RecordVisualizationType;
    if (!MakeVersion()) return;
    document_ = services_.Document.History.Current();
    ++run_;
    buffering_ = services_.Buffering;
    const Bytes start = document_->Level().StartSelect;
    sound_.Begin(document_->WorkFilePath, start, type == RecordTypeConstants::RECORD_MIX);
    document_->PlayPosition = start;
    StartDevice();
}

void Recording::StartDevice() {
    const editor::DocumentFormat& format = services_.Document.Format;
    const std::int32_t length = buffering_.BufferSize < 1 ? kUsualBuffer : buffering_.BufferSize;
    RecordingCompanion& device = services_.Device;
    services_.Presentation.Rate.SetSampleRate(format.Frequency);
    device.SetFormat(format.Frequency, format.Channels);
    device.SetBufferFrames(signal::MulDiv(format.Frequency, length, 1000));
    lastDevicePosition_ = 0;
    device.PrepareDevice();
    services_.Operation.Status.LastError = device.StartDevice();
    services_.Operation.Status.BeginTransport(StatusConstants::Recording);
    active_ = true;
}

// False when there is no new version, or a host has started something else.
bool Recording::MakeVersion() {
    editor::OperationTicket ticket(services_.Operation.Counter, services_.Document.History);
    editor::StatusGuard status(services_.Operation.Status, ticket,
                               StatusConstants::BuildingOverview);
    const DocumentState& old = *services_.Document.History.Current();
    const editor::ZoomLevel selection = old.Level();
    const bool selected = old.Selected != 0;
    editor::WaveStream source(services_.Storage.Files);
    editor::NewWorkFile target(services_.Storage);
    if (!source.OpenWhole(old.WorkFilePath, old.TotalBytes) ||
        !target.Create(services_.Document.Format)) {
        services_.Operation.Status.LastError = ErrorConstants::FILEACCESS;
        return false;
    }
    const ErrorConstants error = Copy(source, target.Stream(), ticket, status);
    if (!ticket.IsCurrent()) return false;
    source.Close();
    status.End();
    services_.Operation.Status.LastError = error;
    services_.Operation.Events.EndOperation();
    if (error != ErrorConstants::NOERRORS || !ticket.IsCurrent() ||
        !services_.Operation.Status.Idle())
        return false;
    if (!target.PushTo(services_.Document.History, services_.Document.Format)) {
        services_.Operation.Status.LastError = ErrorConstants::FILEACCESS;
        return false;
    }

    DocumentState& state = *services_.Document.History.Current();
    editor::ZoomLevel& level = state.Level();
    level.EndView = state.TotalBytes;
    level.StartSelect = selection.StartSelect;
    level.EndSelect = std::max(selection.EndSelect, Bytes(0));
    if (selected) state.Selected = 1;
    // Recording overwrites in place or extends: no sound has moved.
    state.Markers = state.Prev->Markers;
    editor::UndoSteps& steps = services_.Document.Steps;
    steps.LastStepCount = steps.BatchMode ? steps.LastStepCount + 1 : 1;
    return true;
}

// Cannot be cancelled: a status that a host has reset is set again.
ErrorConstants Recording::Copy(editor::WaveStream& source, editor::WaveStream& target,
                               const editor::OperationTicket& ticket, editor::StatusGuard& status) {
    constexpr int kPiece = 20;  // half seconds
    const auto piece =
        static_cast<std::uint32_t>(std::min(HalfSeconds(services_.Document.Format, kPiece).Count(),
                                            std::int64_t{editor::WaveStream::LargestLength}));
    editor::BlockBuffer buffer(services_.Storage.Memory);
    if (!buffer.Take()) return ErrorConstants::MEMORY;
    for (;;) {
        const auto copied = source.CopyTo(target, piece, buffer);
        if (!copied) return ErrorConstants::FILEACCESS;
        if (*copied == 0) return ErrorConstants::NOERRORS;
        services_.Operation.Events.BlockOperation(editor::PercentRead(source));
        if (!ticket.IsCurrent()) return ErrorConstants::NOERRORS;
        status.Set(StatusConstants::BuildingOverview);
    }
}

bool Recording::StoreRecordedBlock() {
    if (!active_) return true;
    const std::uint64_t run = run_;
    CheckLoad();
    switch (StoreBlock()) {
        case Stored::Nothing:
            return true;
        case Stored::Failed:
            return false;
        case Stored::Block:
            break;
    }
    if (services_.State.VisualizationInUse == RecordState::LastSeconds)
        ShowLastSeconds(run);
    else
        FollowLiveSound(run);
    return true;
}

// A process that computes most of the time shows the recording in the cheapest way.
void Recording::CheckLoad() {
    const platform::ProcessTimes now = services_.Clock.TimesOfProcess();
    const platform::ProcessTimes before = std::exchange(processTimes_, now);
    if (buffering_.BufferSize < 1) return;
    const auto passed = static_cast<std::uint32_t>(now.Kernel - before.Kernel) +
                        static_cast<std::uint32_t>(now.User - before.User);
    const std::uint32_t load = passed / static_cast<std::uint32_t>(buffering_.BufferSize) / 100;
    if (load > kMostLoad) services_.State.VisualizationInUse = RecordState::CenterLine;
}

Recording::Stored Recording::StoreBlock() {
    const SamplesBlock block = services_.Device.ReadBlock();
    const automation::ArrayView<std::int16_t> view(block.Get());
    if (view.Elements().empty()) return Stored::Nothing;
    return sound_.Store(view.Elements(), document_->TotalBytes) ? Stored::Block : Stored::Failed;
}

void Recording::ShowLastSeconds(std::uint64_t run) {
    constexpr int kShown = 8;  // half seconds
    const Bytes end = document_->TotalBytes;
    const editor::DocumentFormat& format = services_.Document.Format;
    services_.Presentation.Range.RecomputeView(
        std::max(end - HalfSeconds(format, kShown), Bytes(0)), end);
    if (IsCurrent(run)) services_.Presentation.View.RenderBackground();
    if (IsCurrent(run)) services_.Presentation.View.Redraw();
}

void Recording::FollowLiveSound(std::uint64_t run) {
    const std::int64_t frame = services_.Document.Format.FrameSize().Count();
    editor::ZoomLevel& level = document_->Level();
    level.EndView = document_->TotalBytes;
    const std::int64_t start =
        (level.EndView - HalfSeconds(services_.Document.Format, 1)).Count() / frame * frame;
    level.StartView = Bytes(std::max<std::int64_t>(start, 0));
    if (level.StartView < level.EndView) services_.Screen.FollowRecording();
    if (services_.State.VisualizationInUse == RecordState::CenterLine) return;
    if (IsCurrent(run)) services_.Presentation.View.RenderBackground();
    if (IsCurrent(run)) services_.Presentation.View.Redraw();
}

void Recording::RecordedTo(const DevicePosition& position) {
    if (active_ && UpdateRecordCursor(position.Frames))
        services_.Events.Meter(position.LevelLeft, position.LevelRight);
}

bool Recording::UpdateRecordCursor(std::int32_t frames) {
    const std::uint64_t run = run_;
    const auto passed = static_cast<std::int32_t>(static_cast<std::uint32_t>(frames) -
                                                  static_cast<std::uint32_t>(lastDevicePosition_));
    lastDevicePosition_ = frames;
    document_->PlayPosition =
        document_->PlayPosition + Bytes(passed * services_.Document.Format.FrameSize().Count());
    if (services_.State.VisualizationInUse == RecordState::LastSeconds) return true;
    if (services_.State.VisualizationInUse == RecordState::LiveSound) ShowLiveSound();
    if (IsCurrent(run)) services_.Presentation.View.Redraw();
    if (IsCurrent(run)) services_.Events.ChangePlayPosition();
    return IsCurrent(run);
}

// The last half second.
void Recording::ShowLiveSound() {
    const editor::DocumentFormat& format = services_.Document.Format;
    const std::int64_t wanted = HalfSeconds(format, 1).Count() / 2;
    const SamplesBlock block = services_.Device.GetRecentSamples(static_cast<std::int32_t>(wanted));
    const automation::ArrayView<std::int16_t> view(block.Get());
    const auto shown =
        static_cast<std::size_t>(format.Frequency / 2) * static_cast<std::size_t>(format.Channels);
    services_.Screen.ShowLive(view.Elements().last(std::min(shown, view.Elements().size())));
}

void Recording::StopDevice() {
    ++run_;
    services_.Device.StopDevice();
}

void Recording::Finish() {
    const std::uint64_t run = run_;
    Halt();
    Stored stored = Stored::Block;
    while (stored == Stored::Block)
        stored = StoreBlock();
    if (stored == Stored::Failed) services_.Operation.Status.LastError = ErrorConstants::FILEACCESS;
    document_->Selected = 0;
    services_.Presentation.View.BuildOverviewSummary();
    if (!IsCurrent(run)) return;
    document_->Zoom[0].StartView = Bytes(0);
    document_->Zoom[0].EndView = document_->TotalBytes;
    services_.Presentation.Range.RecomputeView(Bytes(0), document_->TotalBytes);
    if (IsCurrent(run)) services_.Presentation.View.Redraw();
    if (IsCurrent(run)) services_.Events.Meter(0, 0);
}

void Recording::Halt() {
    active_ = false;
    services_.Operation.Status.Stop();
}

}  // namespace mavrin2::processing
