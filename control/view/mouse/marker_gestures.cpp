#include "control/view/mouse/marker_gestures.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "automation/text.h"

namespace mavrin2::view {

using editor::DragMode;
using editor::MarkerRecord;

namespace {

class CueMarkerDrag final : public MarkerGesture {
public:
    CueMarkerDrag(MouseContext& context, editor::Markers& markers)
        : MarkerGesture(context, markers, DragMode::CueMarker) {}

private:
    void MoveTo(Bytes position) override { markers_.MoveMarker(ToFrames(position), 0); }
};

// An end of a range. When it passes the other one, they change places.
class RangeEndDrag final : public MarkerGesture {
public:
    using MarkerGesture::MarkerGesture;

private:
    void MoveTo(Bytes position) override;
};

void RangeEndDrag::MoveTo(Bytes position) {
    const MarkerRecord& marker = *markers_.Current();
    Bytes start = ToBytes(marker.Position);
    Bytes end = start + ToBytes(marker.Length);
    (Mode() == DragMode::RangeEnd ? end : start) = position;
    if (end < start) {
        std::swap(start, end);
        ChangeMode(Mode() == DragMode::RangeEnd ? DragMode::RangeStart : DragMode::RangeEnd);
        context_.Drag.Mode = Mode();
    }
    editor::DocumentState& document = *context_.Document.History.Current();
    editor::ZoomLevel& level = document.Level();
    level.StartSelect = std::clamp(start, Bytes(0), document.TotalBytes);
    level.EndSelect = std::clamp(end, Bytes(0), document.TotalBytes);
    context_.Picture.UpdateSelectionColumns();
    markers_.MoveMarker(ToFrames(start), static_cast<std::int32_t>(ToFrames(end - start)));
}

class CutPointDrag final : public MarkerGesture {
public:
    CutPointDrag(MouseContext& context, editor::Markers& markers)
        : MarkerGesture(context, markers, DragMode::CutPoint) {}

private:
    void MoveTo(Bytes position) override {
        const Bytes cut = std::max(position - ToBytes(markers_.Current()->Position), Bytes(0));
        markers_.SetCutPoint(static_cast<std::int32_t>(ToFrames(cut)));
    }
};

}  // namespace

void MarkerGesture::Move(Point at, const MouseZones& /*zones*/) {
    if (markers_.Current()) MoveTo(context_.ByteAt(context_.ColumnAt(at)));
    Report();
}

void MarkerGesture::Report() {
    if (const std::int32_t number = markers_.Num(); number > 0)
        context_.Operation.Events.ChangeMarker(number);
}

std::optional<MarkerMouse::Hit> MarkerMouse::HitAt(Point at) const {
    const ColumnMapping columns = context_.Columns();
    const std::int32_t x = at.X - context_.Area().WaveArea.Left;
    const auto found = targets_.Shown.HitTestMarker(columns.ColumnToByte(x));
    if (found.Index < 0) return std::nullopt;
    const editor::MarkerDisplayEntry& entry =
        targets_.Shown.Entries()[static_cast<std::size_t>(found.Index)];
    const auto within = [&](Bytes position) {
        return std::abs(columns.ByteToColumn(position) - x) <= 2 * context_.Area().LaneMargin;
    };
    Hit hit;
    hit.Number = found.Number;
    hit.Range = entry.Length != Bytes(0);
    hit.Start = within(entry.Position);
    hit.End = within(entry.End());
    hit.CutPoint = within(entry.Cut()) && entry.CutPoint != Bytes(0);
    return hit;
}

// False when a host has changed something in one of the events.
bool MarkerMouse::Select(std::int32_t number) {
    const auto ticket =
        editor::OperationTicket::Observe(context_.Operation.Counter, context_.Document.History);
    targets_.Positions.GoToMarker(number);
    if (!ticket.IsCurrent()) return false;
    context_.Events.MarkerClick(number);
    return ticket.IsCurrent() && targets_.Markers.Num() == number;
}

std::shared_ptr<Gesture> MarkerMouse::TakenAt(Point at) {
    const auto hit = HitAt(at);
    if (!hit) return nullptr;
    targets_.Markers.SetNum(hit->Number);
    if (!hit->Near()) return nullptr;
    if (!Select(hit->Number)) return nullptr;
    if (hit->CutPoint) return std::make_shared<CutPointDrag>(context_, targets_.Markers);
    if (!hit->Range) return std::make_shared<CueMarkerDrag>(context_, targets_.Markers);
    return std::make_shared<RangeEndDrag>(context_, targets_.Markers,
                                          hit->End ? DragMode::RangeEnd : DragMode::RangeStart);
}

void MarkerMouse::Click(Point at) {
    if (const auto hit = HitAt(at)) Select(hit->Number);
}

void MarkerMouse::ShowTip(Point at) const {
    const auto hit = HitAt(at);
    const auto records = context_.Document.History.Current()->Markers.Records();
    if (hit && hit->Near() && static_cast<std::size_t>(hit->Number) <= records.size())
        tooltip_.ShowMarkerTooltip(at.X, at.Y, records[static_cast<std::size_t>(hit->Number) - 1]);
}

void MarkerMouse::DoubleClick(Point at) {
    if (!targets_.Settings.MouseEventEnabled) return;
    const auto hit = HitAt(at);
    if (!hit || (!hit->Start && !hit->End)) {
        Insert(at);
        return;
    }
    targets_.Markers.SetNum(hit->Number);
    targets_.Markers.Delete();
}

// At the selection or, where the click is not near its start, at the click.
void MarkerMouse::Insert(Point at) {
    const editor::DocumentState& document = *context_.Document.History.Current();
    const editor::ZoomLevel level = document.Level();
    const std::int32_t column = at.X - context_.Area().WaveArea.Left;
    Bytes position = level.StartSelect;
    Bytes length(0);
    if (document.Selected)
        length = level.EndSelect - level.StartSelect;
    else if (std::abs(column - context_.Selection.Start) > 2 * context_.Area().LaneMargin)
        position = context_.ByteAt(context_.ColumnAt(at));
    const auto toFrames = [&](Bytes bytes) {
        return static_cast<std::int32_t>(context_.Document.Format.ToFrames(bytes).Count());
    };
    editor::MarkerTexts texts;
    const std::string label = "Marker " + std::to_string(targets_.Markers.Count() + 1);
    texts.Label = automation::ToOle(std::string_view(label));
    targets_.Markers.Insert(toFrames(position), toFrames(length), std::move(texts));
    context_.Events.NewMarker(targets_.Markers.Count());
}

}  // namespace mavrin2::view
