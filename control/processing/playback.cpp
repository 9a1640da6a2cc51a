#include "control/processing/playback.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "control/processing/play_block.h"
#include "control/signal/mul_div.h"

namespace mavrin2::processing {

using editor::DocumentState;
using editor::ErrorConstants;
using editor::StatusConstants;
using editor::ZoomLevel;
using signal::Bytes;

namespace {

constexpr int kBlocksToContinue = 3;

Bytes RoundedTo(Bytes position, Bytes frame) {
    return Bytes(position.Count() / frame.Count() * frame.Count());
}

}  // namespace

Bytes Playback::SmoothBytes() const {
    const editor::DocumentFormat& format = services_.Document.Format;
    if (!services_.Settings.SmoothEnabled || Bytes(format.Frequency) >= Document().TotalBytes)
        return Bytes(0);
    const std::int32_t frames =
        signal::MulDiv(format.Frequency, services_.Settings.SmoothTime, 1000);
    return Bytes(frames * format.FrameSize().Count());
}

Bytes Playback::End(Bytes smooth) const {
    const DocumentState& document = Document();
    if (services_.State.PlayMode == PlayTypeConstants::PLAYTOEND) return document.TotalBytes;
    const ZoomLevel level = std::as_const(document).Level();
    if (!document.Selected || services_.Drag.Mode == editor::DragMode::Selecting)
        return level.EndView;
    return level.EndSelect - smooth;
}

Bytes Playback::BlockLength() const {
    const editor::DocumentFormat& format = services_.Document.Format;
    const std::int32_t frames = signal::MulDiv(format.Frequency, buffering_.BufferSize, 1000);
    return Bytes(std::max(frames, 0) * format.FrameSize().Count());
}

void Playback::Play(PlayTypeConstants type) {
    if (!Ready(services_.Document, services_.Operation)) return;
    if (Document().TotalBytes == Bytes(0)) return;
    // An operation that was cancelled, but has not returned yet, would take the run for its own.
    if (services_.Operation.Status.Cancelling()) services_.Operation.Counter.Next();
    services_.Operation.Status.LastError = ErrorConstants::NOERRORS;
    services_.State.PlayMode = type;
    Begin();
}

// False when nothing plays, or a host has ended it again.
bool Playback::Begin() {
    DocumentState& document = Document();
    const Bytes from = document.Level().StartSelect;
    if (from > document.Level().EndView) return false;
    const std::uint64_t run = ++run_;
    document_ = &document;
    buffering_ = services_.Buffering;
    SetPlayPosition(from + SmoothBytes());
    services_.State.PlayColumn = services_.Drag.AnchorColumn;

    PlaybackCompanion& player = services_.Player;
    player.StopDevice();
    player.SetFormat(services_.Document.Format.Frequency, services_.Document.Format.Channels);
    player.PrepareDevice();
    services_.Operation.Status.LastError = player.StartDevice();
    ChooseOutputChannels();
    if (!ShowSelectionStart(run) || !services_.Operation.Status.Idle()) {
        // A host has changed the document: there is nothing to play any more.
        if (run_ == run) player.StopDevice();
        return false;
    }
    services_.Operation.Status.BeginTransport(StatusConstants::Playing);
    phase_ = Phase::Playing;
    services_.State.Interpolation = editor::InterpolationMode::Parabola;
    return FeedBlocks(run, buffering_.BufferCount);
}

void Playback::ChooseOutputChannels() {
    if (services_.Document.Format.Channels < 2) return;
    const editor::ChannelSwitches& switches = services_.Document.Channels;
    if (switches.OperationCount == 1) {
        if (switches.Operation[0]) services_.Player.SetOutputChannels(1);
        if (switches.Operation[1]) services_.Player.SetOutputChannels(2);
    } else if (switches.OperationCount == 2) {
        services_.Player.SetOutputChannels(3);
    }
}

// Of a device that begins anew.
void Playback::SetPlayPosition(Bytes position) {
    Document().PlayPosition = streamPosition_ = startPosition_ = position;
    played_ = Bytes(0);
    lastDevicePosition_ = 0;
}

bool Playback::ShowSelectionStart(std::uint64_t run) {
    if (!IsCurrent(run)) return false;
    const ZoomLevel level = std::as_const(*document_).Level();
    if (level.StartSelect >= level.StartView) return true;
    services_.Range.RecomputeView(level.StartSelect,
                                  level.StartSelect + (level.EndView - level.StartView));
    if (!IsCurrent(run)) return false;
    services_.View.Redraw();
    return IsCurrent(run);
}

bool Playback::FeedBlocks(std::uint64_t run, int count) {
    for (int i = 0; i < count && run_ == run && Playing(); ++i)
        FeedBlock();
    return run_ == run && Playing();
}

void Playback::FeedBlock() {
    if (!Playing()) return;
    services_.Operation.Status.BeginTransport(StatusConstants::Playing);
    const Bytes end = End(SmoothBytes());
    const Bytes most = BlockLength();
    const auto left = [&] { return std::max(std::min(most, end - streamPosition_), Bytes(0)); };
    if (left() == Bytes(0) && services_.State.PlayMode == PlayTypeConstants::PLAYLOOPED)
        streamPosition_ = std::as_const(*document_).Level().StartSelect;
    const Bytes length = RoundedTo(left(), services_.Document.Format.FrameSize());
    if (length == Bytes(0)) return;
    try {
        PlayBlock block =
            ReadPlayBlock(services_.Files, document_->WorkFilePath, services_.Document.Format,
                          streamPosition_, length, services_.Speed);
        if (block.Taken == Bytes(0)) return;
        streamPosition_ = streamPosition_ + block.Taken;
        services_.Player.QueueBlock(block.Samples);
    } catch (const std::bad_alloc&) {
        services_.Operation.Status.LastError = ErrorConstants::MEMORY;
    }
}

void Playback::PlayedTo(const DevicePosition& position) {
    if (position.Frames > 0 && Playing() && UpdatePlayCursor(position.Frames))
        services_.Events.Meter(position.LevelLeft, position.LevelRight);
}

// False when a host has ended the run.
bool Playback::UpdatePlayCursor(std::int32_t frames) {
    services_.Operation.Status.BeginTransport(StatusConstants::Playing);
    const std::uint64_t run = run_;
    Advance(frames);
    const PlayTypeConstants mode = services_.State.PlayMode;
    if (mode == PlayTypeConstants::PLAYTOEND && !TurnPage(run)) return false;
    if (mode == PlayTypeConstants::PLAYLOOPED && document_->PlayPosition >= End(Bytes(0)))
        return PlayAgain([] {});
    services_.Screen.MovePlayCursor(document_->PlayPosition);
    if (!IsCurrent(run)) return false;
    services_.Events.ChangePlayPosition();
    return IsCurrent(run) && Active();
}

// Rounded up from all that was played at one speed: rounding up each event's share would add up.
void Playback::Advance(std::int32_t frames) {
    const auto passed = static_cast<std::int32_t>(static_cast<std::uint32_t>(frames) -
                                                  static_cast<std::uint32_t>(lastDevicePosition_));
    lastDevicePosition_ = frames;
    const float percent = services_.Speed.Changes() ? services_.Speed.Percent() : 100;
    if (percent != percent_) {
        startPosition_ = document_->PlayPosition;
        played_ = Bytes(0);
        percent_ = percent;
    }
    played_ = played_ + Bytes(passed * services_.Document.Format.FrameSize().Count());
    const double moved = std::ceil(static_cast<double>(played_.Count()) * 100 / percent);
    Document().PlayPosition = startPosition_ + Bytes(static_cast<std::int64_t>(moved));
}

// Past the end of the view, the next page has the cursor in its middle.
bool Playback::TurnPage(std::uint64_t run) {
    const DocumentState& document = *document_;
    const ZoomLevel level = document.Level();
    if (document.PlayPosition <= level.EndView) return true;
    const Bytes length = level.EndView - level.StartView;
    const Bytes middle = document.PlayPosition - Bytes(length.Count() / 2);
    const Bytes start = RoundedTo(std::min(middle, document.TotalBytes - length),
                                  services_.Document.Format.FrameSize());
    services_.Range.RecomputeView(start, start + length);
    if (!IsCurrent(run)) return false;
    services_.View.Redraw();
    return IsCurrent(run) && Playing();
}

void Playback::Restart(const std::function<void()>& meanwhile) {
    if (Playing()) PlayAgain(meanwhile);
}

// False when nothing plays afterwards.
bool Playback::PlayAgain(const std::function<void()>& meanwhile) {
    StopDevice();
    BecomeIdle();
    const std::uint64_t run = run_;
    meanwhile();
    if (run_ == run) Play(services_.State.PlayMode);
    if (Active()) return true;
    // The selection's start has moved out of view, or the document is another one.
    if (run_ == run) Finish();
    return false;
}

void Playback::Pause() {
    if (!Playing()) return;
    services_.Player.StopDevice();
    services_.Operation.Status.BeginTransport(StatusConstants::Paused);
    phase_ = Phase::Paused;
}

ErrorConstants Playback::Continue() {
    if (phase_ != Phase::Paused) return ErrorConstants::NOERRORS;
    BecomeIdle();
    const std::uint64_t run = run_;
    const editor::DocumentFormat& format = services_.Document.Format;
    services_.Player.SetFormat(format.Frequency, format.Channels);
    services_.Player.PrepareDevice();
    const ErrorConstants error = services_.Player.StartDevice();
    services_.Operation.Status.LastError = error;
    if (error != ErrorConstants::NOERRORS) EndRun();
    if (!IsCurrent(run) || error != ErrorConstants::NOERRORS) return error;
    SetPlayPosition(RoundedTo(document_->PlayPosition, format.FrameSize()));
    if (!ShowSelectionStart(run) || !services_.Operation.Status.Idle()) {
        if (run_ == run) services_.Player.StopDevice();
        return error;
    }
    services_.Operation.Status.BeginTransport(StatusConstants::Playing);
    phase_ = Phase::Playing;
    FeedBlocks(run, kBlocksToContinue);
    return error;
}

void Playback::StopDevice() {
    ++run_;
    services_.Player.StopDevice();
}

void Playback::BecomeIdle() {
    phase_ = Phase::Stopped;
    services_.Operation.Status.Stop();
}

void Playback::EndRun() {
    BecomeIdle();
    services_.State.Interpolation = editor::InterpolationMode::Spline;
}

void Playback::Finish() {
    EndRun();
    services_.View.Redraw();
    if (!Active()) services_.Events.Meter(0, 0);
    // A host may have begun another run in an event.
    if (!Active()) services_.Events.EndPlay();
}

void Playback::Halt() {
    if (!Active()) return;
    StopDevice();
    EndRun();
}

}  // namespace mavrin2::processing
