#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "automation/text.h"

namespace mavrin2::editor {

// 10 × 10 pixels, 0x00BBGGRR, bottom row first.
using MarkerPicture = std::array<std::uint32_t, 100>;

// What edits of the sound leave as it is: all versions of the document share it.
struct MarkerTexts {
    automation::OleString Label;
    automation::OleString Note;
    automation::OleString Text;
    std::shared_ptr<const MarkerPicture> Picture;  // null: black
};

// A marker: a cue, or a range when it has a length. Positions and lengths are frames; hosts write
// any 32-bit value, also outside the document.
struct MarkerRecord {
    std::int64_t Position = 0;
    std::int64_t Length = 0;
    std::int64_t CutPoint = 0;                 // from Position
    std::uint32_t Color = 0;                   // 0x00BBGGRR
    std::uint32_t Play = 0;                    // kept for hosts
    std::shared_ptr<const MarkerTexts> Texts;  // never null in a list
};

// The markers of one version of the document, in order of insertion, and the current one of them,
// numbered from 1. Copies share their records until one of them is changed.
class MarkerList {
public:
    std::int32_t Count() const {
        return records_ ? static_cast<std::int32_t>(records_->size()) : 0;
    }
    std::span<const MarkerRecord> Records() const {
        return records_ ? std::span<const MarkerRecord>(*records_)
                        : std::span<const MarkerRecord>();
    }
    bool SharesRecordsWith(const MarkerList& other) const { return records_ == other.records_; }

    // The number of the current marker, 0 without markers.
    std::int32_t Current() const { return current_; }
    // Limited to the markers there are.
    void Select(std::int32_t number);
    // Null without markers.
    const MarkerRecord* CurrentRecord() const {
        return current_ > 0 ? &Records()[static_cast<std::size_t>(current_) - 1] : nullptr;
    }

    // For changes: the list's own records, copied first if they are shared.
    std::span<MarkerRecord> OwnRecords() { return Own(); }
    // The current one of them; there has to be one.
    MarkerRecord& OwnCurrent() { return Own()[static_cast<std::size_t>(current_) - 1]; }
    // The first marker becomes the current one.
    void Append(MarkerRecord record);
    // Removes the current marker; the next one becomes current, or the last one.
    void DeleteCurrent();
    // By position; those at equal positions keep their order. The current number stays.
    void Sort();

private:
    std::vector<MarkerRecord>& Own();

    std::shared_ptr<std::vector<MarkerRecord>> records_;  // null: none
    std::int32_t current_ = 0;
};

}  // namespace mavrin2::editor
