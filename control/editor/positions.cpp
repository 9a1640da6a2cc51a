#include "control/editor/positions.h"

#include <algorithm>
#include <utility>

#include "control/signal/mul_div.h"

namespace mavrin2::editor {

std::int32_t Positions::SecToSamples(std::int32_t milliseconds) const {
    return signal::MulDiv(milliseconds, document_.Format.Frequency, 1000);
}

std::int32_t Positions::SamplesToSec(std::int32_t samples) const {
    return signal::MulDiv(samples, 1000, document_.Format.Frequency);
}

std::int32_t Positions::ToFrames(Bytes position) const {
    return static_cast<std::int32_t>(document_.Format.ToFrames(position).Count());
}

Bytes Positions::Limited(std::int32_t frames) const {
    return std::clamp(document_.Format.ToBytes(frames), Bytes(0),
                      document_.History.Current()->TotalBytes);
}

void Positions::GoToMarker(std::int32_t number) {
    DocumentState* state = document_.History.Current();
    if (!state || state->Markers.Count() == 0) return;
    const auto index = static_cast<std::size_t>(std::clamp(number, 1, state->Markers.Count()) - 1);
    const MarkerRecord& marker = state->Markers.Records()[index];
    const std::int64_t frame = document_.Format.FrameSize().Count();
    const auto limited = [&](std::int64_t frames) {
        return std::min(Bytes(frames * frame), state->TotalBytes);
    };
    ZoomLevel& level = state->Level();
    level.StartSelect = limited(marker.Position);
    level.EndSelect = limited(marker.Position + marker.Length);
    state->Selected = level.StartSelect != level.EndSelect ? 1 : 0;
    ShowSelection();
}

std::int32_t Positions::StartSelect() const {
    const DocumentState* state = document_.History.Current();
    return state ? ToFrames(state->Level().StartSelect) : 0;
}

void Positions::SetStartSelect(std::int32_t frames) {
    DocumentState* state = document_.History.Current();
    if (!state) return;
    const Bytes position = Limited(frames);
    ZoomLevel& level = state->Level();
    if (!state->Selected || position >= level.EndSelect) level.EndSelect = position;
    level.StartSelect = position;
    ShowSelection();
}

std::int32_t Positions::EndSelect() const {
    const DocumentState* state = document_.History.Current();
    return state ? ToFrames(state->Level().EndSelect) : 0;
}

void Positions::SetEndSelect(std::int32_t frames) {
    DocumentState* state = document_.History.Current();
    if (!state) return;
    const Bytes position = Limited(frames);
    ZoomLevel& level = state->Level();
    if (!state->Selected) {
        level.StartSelect = level.EndSelect = position;
    } else if (position <= level.StartSelect) {
        level.EndSelect = std::exchange(level.StartSelect, position);
    } else {
        level.EndSelect = position;
    }
    ShowSelection();
}

std::int32_t Positions::StartView() const {
    const DocumentState* state = document_.History.Current();
    return state ? ToFrames(state->Level().StartView) : 0;
}

void Positions::SetStartView(std::int32_t frames) {
    DocumentState* state = document_.History.Current();
    if (!state) return;
    const Bytes position = Limited(frames);
    if (position == state->Level().StartView) return;
    PushViewLevel();
    ZoomLevel& level = state->Level();
    if (position >= level.EndView)
        level.StartView = std::exchange(level.EndView, position);
    else
        level.StartView = position;
    ShowView();
}

std::int32_t Positions::EndView() const {
    const DocumentState* state = document_.History.Current();
    return state ? ToFrames(state->Level().EndView) : 0;
}

void Positions::SetEndView(std::int32_t frames) {
    DocumentState* state = document_.History.Current();
    if (!state) return;
    const Bytes position = Limited(frames);
    if (position == state->Level().EndView) return;
    PushViewLevel();
    ZoomLevel& level = state->Level();
    if (position <= level.StartView)
        level.EndView = std::exchange(level.StartView, position);
    else
        level.EndView = position;
    ShowView();
}

std::int16_t Positions::Selected() const {
    const DocumentState* state = document_.History.Current();
    return state ? state->Selected : std::int16_t{0};
}

void Positions::SetSelected(std::int16_t selected) {
    DocumentState* state = document_.History.Current();
    if (!state) return;
    state->Selected = selected;
    ShowSelection();
}

std::int32_t Positions::TotalSamples() const {
    const DocumentState* state = document_.History.Current();
    return state ? ToFrames(state->TotalBytes) : 0;
}

std::int32_t Positions::CurrentPosition() const {
    const DocumentState* state = document_.History.Current();
    if (!state) return 0;
    return ToFrames(status_.Idle() ? state->Level().StartSelect : state->PlayPosition);
}

void Positions::SetCurrentPosition(std::int32_t frames) {
    DocumentState* state = document_.History.Current();
    if (!state) return;
    const Bytes position = Limited(frames);
    ZoomLevel& level = state->Level();
    if (!state->Selected) {
        level.StartSelect = level.EndSelect = position;
    } else if (position >= level.EndSelect) {
        level.StartSelect = std::exchange(level.EndSelect, position);
    } else {
        level.StartSelect = position;
    }
    presentation_.Range.UpdateSelectionColumns();
    if (!status_.Idle()) {
        activity_.Stop();
        return;
    }
    presentation_.View.RenderBackground();
    presentation_.View.Redraw();
}

// Level 0 always spans the whole document, so a range chosen by a host gets another level.
void Positions::PushViewLevel() {
    DocumentState& state = *document_.History.Current();
    if (state.ZoomIndex != 0) return;
    ZoomLevel level = state.Level();
    state.ZoomIndex = 1;
    level.SelectDragEnd = state.Level().SelectDragEnd;
    state.Level() = level;
}

void Positions::ShowSelection() {
    presentation_.Range.UpdateSelectionColumns();
    presentation_.View.Redraw();
}

void Positions::ShowView() {
    presentation_.Range.RecomputeView();
    presentation_.Range.UpdateSelectionColumns();
    presentation_.View.Redraw();
}

}  // namespace mavrin2::editor
