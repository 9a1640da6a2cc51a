#include "control/editor/markers/marker_files.h"

#include <algorithm>
#include <limits>
#include <new>

#include "control/editor/markers/marker_text.h"

namespace mavrin2::editor {
namespace {

// What is written of the document, in frames.
struct Range {
    std::int64_t Start;
    std::int64_t End;
};

std::int32_t InFile(std::int64_t frames, double ratio) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<double>(static_cast<double>(frames) * ratio + 0.5,
                                                        Limits::min(), Limits::max()));
}

// False for a marker out of the range. Places count as hosts see them, in 32 bits.
bool Describe(const MarkerRecord& marker, const Range& range, double ratio, StoredMarker& stored) {
    const std::int64_t position = static_cast<std::int32_t>(marker.Position);
    const std::int64_t end = position + static_cast<std::int32_t>(marker.Length);
    if (position > range.End || (position < range.Start && end < range.Start)) return false;
    const std::int64_t first = std::max(position, range.Start);
    stored = {InFile(first - range.Start, ratio), InFile(std::min(end, range.End) - first, ratio),
              automation::ToUtf8(marker.Texts->Label), automation::ToUtf8(marker.Texts->Note),
              MarkerText(marker.Color, marker.CutPoint)};
    return true;
}

MarkerTexts TextsOf(const StoredMarker& stored) {
    MarkerTexts texts;
    texts.Label = automation::ToOle(std::string_view(stored.Label));
    texts.Note = automation::ToOle(std::string_view(stored.Note));
    texts.Text = automation::ToOle(std::string_view(stored.Text));
    return texts;
}

}  // namespace

void MarkerFiles::ImportMarkers(const std::filesystem::path& path, const OperationTicket& ticket) {
    extra_.Companion.ReadInfo(path);
    if (!ticket.IsCurrent()) return;
    batches_.BeginOperations();
    try {
        extra_.Companion.ForEachMarker([&](const StoredMarker& stored) {
            if (ticket.IsCurrent())
                markers_.Insert(stored.Position, stored.Length, TextsOf(stored));
        });
    } catch (const std::bad_alloc&) {
        batches_.EndOperationsOnSameSound();
        throw;
    }
    if (ticket.IsCurrent())
        batches_.EndOperationsOnSameSound();
    else if (document_.Steps.BatchMode)  // of what has overtaken it, by now
        batches_.EndOperations();
}

void MarkerFiles::ExportMarkers(const std::filesystem::path& path, bool selected, double ratio,
                                const OperationTicket& ticket) {
    const DocumentState* state = document_.History.Current();
    if (!extra_.SaveExtraInfoEnabled || !state) return;
    const ZoomLevel level = state->Level();
    const auto frames = [&](Bytes position) { return document_.Format.ToFrames(position).Count(); };
    const Range range = selected ? Range{frames(level.StartSelect), frames(level.EndSelect)}
                                 : Range{0, frames(state->TotalBytes)};
    // The list may go while the companion works.
    const MarkerList list = state->Markers;
    extra_.Companion.RemoveMarkers();
    for (const MarkerRecord& marker : list.Records()) {
        if (!ticket.IsCurrent()) return;
        StoredMarker stored;
        if (Describe(marker, range, ratio, stored)) extra_.Companion.AddMarker(stored);
    }
    if (ticket.IsCurrent()) extra_.Companion.WriteInfo(path);
}

}  // namespace mavrin2::editor
