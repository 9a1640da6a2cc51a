#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

#include "control/editor/markers/marker_list.h"
#include "control/signal/quantity.h"

namespace mavrin2::editor {

using signal::Bytes;

// A marker as the picture and the mouse use it, in bytes of the work file.
struct MarkerDisplayEntry {
    static constexpr std::size_t LabelCapacity = 10;  // with the zero at the end

    Bytes Position;
    Bytes Length;
    Bytes CutPoint;            // from Position
    std::uint32_t Number = 0;  // in the list, from 1
    std::uint32_t Color = 0;   // 0x00BBGGRR
    std::uint32_t Play = 0;
    std::array<OLECHAR, LabelCapacity> Label{};

    Bytes End() const { return Position + Length; }
    Bytes Cut() const { return Position + CutPoint; }
};

// The document's markers sorted by position, as they were at the last rebuild. Entries are made
// when they are read: as long as nothing shows markers, a rebuild costs next to nothing.
class MarkerDisplayList {
public:
    // Indices of the first and last entry in view, as the last frame found them.
    struct VisibleRange {
        std::int32_t First = -1;
        std::int32_t Last = -1;
    };
    struct Hit {
        std::int32_t Index = -1;
        std::int32_t Number = 0;
    };

    // At the last rebuild.
    std::int32_t Count() const { return count_; }
    // Valid until the next rebuild.
    std::span<const MarkerDisplayEntry> Entries();

    VisibleRange Visible() const { return visible_; }
    void SetVisible(VisibleRange visible) { visible_ = visible; }

    // The marker in view whose start, end or cut point is nearest to `position`, the first of those
    // at equal distance.
    Hit HitTestMarker(Bytes position);

    // Shows `list` from now on. True when there is something to draw: the list has markers, or
    // had some before.
    bool Rebuild(const MarkerList& list, Bytes frameSize);
    // A rebuild follows the next change of `list`, whose records need no copy then.
    void Expect(const MarkerList& list) {
        if (source_.SharesRecordsWith(list)) Forget();
    }
    // Runs `change`, which changes one record of `list` and is not shown before the next rebuild.
    template <class Change>
    void ChangeUnseen(const MarkerList& list, std::int32_t number, Change&& change);
    // Frees the entries; Count() stays.
    void Release() {
        entries_ = {};
        Forget();
    }

private:
    void Forget() {
        source_ = {};
        kept_.clear();
    }
    MarkerDisplayEntry EntryOf(const MarkerRecord& record, std::int32_t number) const;

    std::vector<MarkerDisplayEntry> entries_;
    std::int32_t count_ = 0;
    VisibleRange visible_;
    Bytes frameSize_;
    // Of the last rebuild until its entries are made, then empty. Records that have changed since
    // are kept as they were.
    MarkerList source_;
    std::map<std::int32_t, MarkerDisplayEntry> kept_;
};

template <class Change>
void MarkerDisplayList::ChangeUnseen(const MarkerList& list, std::int32_t number, Change&& change) {
    if (source_.Count() == 0 || !source_.SharesRecordsWith(list)) {
        change();
        return;
    }
    kept_.try_emplace(number,
                      EntryOf(list.Records()[static_cast<std::size_t>(number) - 1], number));
    source_ = {};
    change();
    source_ = list;
}

}  // namespace mavrin2::editor
