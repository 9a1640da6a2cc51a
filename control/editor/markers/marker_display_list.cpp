#include "control/editor/markers/marker_display_list.h"

#include <algorithm>
#include <cstdlib>

namespace mavrin2::editor {
namespace {

// Hosts write positions of any size: a product that does not fit wraps.
Bytes ToBytes(std::int64_t frames, Bytes frameSize) {
    return Bytes(static_cast<std::int64_t>(static_cast<std::uint64_t>(frames) *
                                           static_cast<std::uint64_t>(frameSize.Count())));
}

}  // namespace

MarkerDisplayEntry MarkerDisplayList::EntryOf(const MarkerRecord& record,
                                              std::int32_t number) const {
    MarkerDisplayEntry entry;
    entry.Position = ToBytes(record.Position, frameSize_);
    entry.Length = ToBytes(record.Length, frameSize_);
    entry.CutPoint = ToBytes(record.CutPoint, frameSize_);
    entry.Number = static_cast<std::uint32_t>(number);
    entry.Color = record.Color;
    entry.Play = record.Play;
    const automation::OleString& label = record.Texts->Label;
    std::copy_n(label.begin(), std::min(label.size(), entry.Label.size() - 1), entry.Label.begin());
    return entry;
}

bool MarkerDisplayList::Rebuild(const MarkerList& list, Bytes frameSize) {
    const std::int32_t before = count_;
    count_ = list.Count();
    entries_.clear();
    Forget();
    if (count_ > 0) source_ = list;
    frameSize_ = frameSize;
    return count_ > 0 || before > 0;
}

std::span<const MarkerDisplayEntry> MarkerDisplayList::Entries() {
    if (source_.Count() == 0) return entries_;
    const std::span<const MarkerRecord> records = source_.Records();
    using Key = std::pair<std::int64_t, std::int32_t>;
    std::vector<Key> order;
    order.reserve(records.size());
    for (const MarkerRecord& record : records)
        order.emplace_back(record.Position, static_cast<std::int32_t>(order.size()) + 1);
    // The number is part of the key: those at equal positions stay in the order of the list.
    if (!std::ranges::is_sorted(order)) std::ranges::sort(order);

    entries_.reserve(records.size());
    for (const auto& [position, number] : order) {
        const auto kept = kept_.find(number);
        entries_.push_back(kept != kept_.end()
                               ? kept->second
                               : EntryOf(records[static_cast<std::size_t>(number) - 1], number));
    }
    Forget();
    return entries_;
}

MarkerDisplayList::Hit MarkerDisplayList::HitTestMarker(Bytes position) {
    Hit hit;
    if (visible_.First < 0) return hit;
    // The last frame may have drawn another list.
    const std::span<const MarkerDisplayEntry> entries = Entries();
    const std::int32_t last =
        std::min(visible_.Last, static_cast<std::int32_t>(entries.size()) - 1);
    std::int64_t best = 0;
    for (std::int32_t i = visible_.First; i <= last; ++i) {
        const MarkerDisplayEntry& entry = entries[static_cast<std::size_t>(i)];
        const std::int64_t distance = std::min({std::abs((entry.Position - position).Count()),
                                                std::abs((entry.End() - position).Count()),
                                                std::abs((entry.Cut() - position).Count())});
        if (hit.Index >= 0 && distance >= best) continue;
        best = distance;
        hit = {i, static_cast<std::int32_t>(entry.Number)};
    }
    return hit;
}

}  // namespace mavrin2::editor
