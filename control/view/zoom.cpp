#include "control/view/zoom.h"

#include <algorithm>
#include <utility>

namespace mavrin2::view {

using editor::DocumentState;
using editor::ErrorConstants;
using editor::ZoomLevel;

namespace {

constexpr std::int64_t kShortestFrames = 3;

// Lengths and positions that hosts give are counted in 32 bits.
std::int32_t Wrapped(Bytes length) {
    return static_cast<std::int32_t>(length.Count());
}

}  // namespace

bool Zoom::CanPush() const {
    const DocumentState* document = document_.History.Current();
    return document && document->TotalBytes != Bytes(0) &&
           document->ZoomIndex < DocumentState::ZoomLevels - 1;
}

void Zoom::ZoomIn() {
    DocumentState* document = document_.History.Current();
    if (!Ready(document_, operation_) || !CanPush() || !document->Selected) return;
    const ZoomLevel from = document->Level();
    const Bytes shortest(kShortestFrames * document_.Format.FrameSize().Count());
    if (from.EndSelect - from.StartSelect < shortest) return;
    ++document->ZoomIndex;
    ZoomLevel& level = document->Level();
    level.StartView = level.StartSelect = from.StartSelect;
    level.EndView = level.EndSelect = from.EndSelect;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    if (!range_.RecomputeView()) return;
    picture_.RenderBackground();
    picture_.Redraw();
}

void Zoom::ZoomOut() {
    DocumentState* document = document_.History.Current();
    if (!document || document->TotalBytes == Bytes(0) || document->ZoomIndex == 0) return;
    const auto ticket = editor::OperationTicket::Observe(operation_.Counter, document_.History);
    --document->ZoomIndex;
    document->Selected = 0;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    if (!range_.RecomputeView() || !ticket.IsCurrent()) return;
    if (document->Level().StartSelect != document->Level().EndSelect) document->Selected = 1;
    picture_.RenderBackground();
    picture_.Redraw();
}

void Zoom::ZoomFull() {
    DocumentState* document = document_.History.Current();
    if (!document || document->ZoomIndex == 0) return;
    const ZoomLevel from = document->Level();
    document->ZoomIndex = 0;
    ZoomLevel& level = document->Level();
    level.StartView = Bytes(0);
    level.EndView = document->TotalBytes;
    level.StartSelect = from.StartSelect;
    level.EndSelect = from.EndSelect;
    document->Selected = from.StartSelect != from.EndSelect ? 1 : 0;
    if (range_.RecomputeView()) picture_.Redraw();
}

void Zoom::ZoomTo(std::int32_t start, std::int32_t end) {
    if (!CanPush()) return;
    DocumentState* document = document_.History.Current();
    std::int32_t s = Wrapped(document_.Format.ToBytes(start));
    std::int32_t e = Wrapped(document_.Format.ToBytes(end));
    if (s > e) std::swap(s, e);
    const std::int64_t length = std::int64_t{e} - s;
    std::int64_t from = s;
    std::int64_t to = e;
    const std::int64_t total = document->TotalBytes.Count();
    // The range keeps its length while the document is that long.
    if (from < 0) {
        from = 0;
        to = length;
    }
    if (to > total) {
        to = total;
        from = std::max<std::int64_t>(to - length, 0);
    }
    const ZoomLevel below = document->Level();
    ++document->ZoomIndex;
    ZoomLevel& level = document->Level();
    level.StartView = Bytes(from);
    level.EndView = Bytes(to);
    level.StartSelect = below.StartSelect;
    level.EndSelect = below.EndSelect;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    if (range_.RecomputeView()) picture_.Redraw();
}

void Zoom::ZoomVertical(std::int32_t percent) {
    picture_.SetVerticalZoom(percent < 1 ? 10 : std::min(percent, 1000));
    picture_.RenderBackground();
    picture_.Redraw();
}

void Zoom::Refresh() {
    range_.RecomputeView();
    picture_.Redraw();
}

}  // namespace mavrin2::view
