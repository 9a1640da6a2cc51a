#include "control/editor/markers/marker_list.h"

#include <algorithm>
#include <utility>

namespace mavrin2::editor {

std::vector<MarkerRecord>& MarkerList::Own() {
    if (!records_)
        records_ = std::make_shared<std::vector<MarkerRecord>>();
    else if (records_.use_count() > 1)
        records_ = std::make_shared<std::vector<MarkerRecord>>(*records_);
    return *records_;
}

void MarkerList::Select(std::int32_t number) {
    if (Count() > 0) current_ = std::clamp(number, 1, Count());
}

void MarkerList::Append(MarkerRecord record) {
    Own().push_back(std::move(record));
    current_ = std::max(current_, 1);
}

void MarkerList::DeleteCurrent() {
    if (current_ < 1) return;
    auto& records = Own();
    records.erase(records.begin() + (current_ - 1));
    current_ = std::min(current_, Count());
}

void MarkerList::Sort() {
    if (std::ranges::is_sorted(Records(), {}, &MarkerRecord::Position)) return;
    std::ranges::stable_sort(Own(), {}, &MarkerRecord::Position);
}

}  // namespace mavrin2::editor
