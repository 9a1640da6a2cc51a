#include "control/view/mouse/selection_gestures.h"

#include <cmath>

namespace mavrin2::view {
namespace {

// Columns that the mouse has to move before the selection follows.
constexpr std::int32_t kSelectingStep = 5;
constexpr std::int32_t kEdgeStep = 3;
// What is narrower was a click.
constexpr std::int32_t kNarrowest = 3;

}  // namespace

bool SelectionGesture::MoveEnd(std::int32_t column, std::int32_t threshold) {
    editor::SelectionColumns& selection = context_.Selection;
    const std::int32_t anchor = context_.Drag.AnchorColumn;
    if (column > anchor) {
        if (std::abs(selection.End - column) < threshold) return false;
        selection = {anchor, column};
    } else {
        if (std::abs(selection.Start - column) < threshold) return false;
        selection = {column, anchor};
    }
    if (selection.Start == selection.End) context_.Document.History.Current()->Selected = 0;
    selection.End = std::min(selection.End, context_.Area().WaveWidth);
    return true;
}

Selecting::Selecting(MouseContext& context, ChannelChoice& channels, Point at)
    : SelectionGesture(context, editor::DragMode::Selecting, 0), channels_(channels) {
    editor::DocumentState& document = *context.Document.History.Current();
    document.Selected = 0;
    const Bytes position = context.ByteAt(context.ColumnAt(at));
    document.Level().StartSelect = document.Level().EndSelect = position;
    const std::int32_t column = context.Columns().ByteToColumn(position);
    context.Drag.AnchorColumn = column;
    context.Selection = {column, column};
}

void Selecting::Show() {
    if (context_.Picture.Settings().TypeView != TypeViewConstants::SPECTRAL)
        context_.Picture.RenderBackground();
    context_.Picture.Redraw();
}

void Selecting::Move(Point at, const MouseZones& zones) {
    editor::DocumentState& document = *context_.Document.History.Current();
    document.Selected = 1;
    if (!MoveEnd(std::max(0, at.X - context_.Area().WaveArea.Left), kSelectingStep)) return;
    editor::ZoomLevel& level = document.Level();
    level.StartSelect = context_.ByteAt(context_.Selection.Start);
    level.EndSelect = std::max(context_.ByteAt(context_.Selection.End), level.StartSelect);
    level.SelectDragEnd = level.EndSelect;
    channels_.ChooseWhileSelecting(zones, at);
    context_.ShowSelection();
}

bool Selecting::IsClick() const {
    return std::abs(context_.Selection.End - context_.Selection.Start) < kNarrowest;
}

void Selecting::Release() {
    if (!IsClick()) return;
    editor::DocumentState& document = *context_.Document.History.Current();
    editor::SelectionColumns& selection = context_.Selection;
    document.Level().EndSelect = document.Level().StartSelect;
    selection.End = selection.Start;
    document.Selected = 0;
    context_.ShowSelection();
}

std::unique_ptr<Gesture> SelectionEdge::TakenAt(MouseContext& context, Point at) {
    const editor::ZoomLevel level = context.Document.History.Current()->Level();
    const editor::SelectionColumns selection = context.Selection;
    const std::int32_t margin = context.Area().LaneMargin;
    const std::int32_t column = at.X - context.Area().WaveArea.Left;
    // The flags of the edges point outwards.
    if (context.InView(level.StartSelect) &&
        std::abs(column - selection.Start - margin / 2) <= margin)
        return std::make_unique<SelectionEdge>(context, selection.End);
    if (context.InView(level.EndSelect) && std::abs(column - selection.End + margin / 2) <= margin)
        return std::make_unique<SelectionEdge>(context, selection.Start);
    return nullptr;
}

void SelectionEdge::Move(Point at, const MouseZones& /*zones*/) {
    editor::DocumentState& document = *context_.Document.History.Current();
    editor::SelectionColumns& selection = context_.Selection;
    if (!document.Selected) {
        const std::int32_t column = context_.ColumnAt(at);
        context_.Drag.AnchorColumn = column;
        selection = {column, column};
    } else if (!MoveEnd(std::max(0, at.X - context_.Area().WaveArea.Left), kEdgeStep)) {
        return;
    }
    editor::ZoomLevel& level = document.Level();
    const ColumnMapping columns = context_.Columns();
    const auto take = [&](Bytes& position, std::int32_t& column) {
        if (!context_.InView(position)) return;
        position = context_.ByteAt(column);
        column = columns.ByteToColumn(position);
    };
    take(level.StartSelect, selection.Start);
    take(level.EndSelect, selection.End);
    level.EndSelect = std::max(level.EndSelect, level.StartSelect);
    selection.Start = std::min(selection.Start, selection.End);
    context_.ShowSelection();
}

}  // namespace mavrin2::view
