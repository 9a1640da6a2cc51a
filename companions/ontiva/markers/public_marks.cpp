#include "companions/ontiva/markers/public_marks.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_map>

namespace mavrin2::ontiva {
namespace {

// Exact markers that have no mark yet, by one of their properties, each in list order.
template <class Key>
class Waiting {
public:
    void Add(const Key& key, std::size_t index) { byKey_[key].Indices.push_back(index); }

    // The first that is not taken, and takes it.
    std::optional<std::size_t> Take(const Key& key, std::vector<bool>& taken) {
        const auto found = byKey_.find(key);
        if (found == byKey_.end()) return std::nullopt;
        auto& [first, indices] = found->second;
        while (first < indices.size() && taken[indices[first]])
            ++first;
        if (first == indices.size()) return std::nullopt;
        taken[indices[first]] = true;
        return indices[first];
    }

private:
    struct Queue {
        std::size_t First = 0;
        std::vector<std::size_t> Indices;
    };
    std::unordered_map<Key, Queue> byKey_;
};

std::string KeyOf(const PublicMark& mark) {
    return std::to_string(mark.Position) + ' ' + mark.Label;
}

// For each mark the exact marker it belongs to: with all in common, else the place, else the label.
std::vector<std::optional<std::size_t>> Assign(const std::vector<PublicMark>& list,
                                               const std::vector<PublicMark>& written) {
    std::vector<bool> taken(written.size());
    std::vector<std::optional<std::size_t>> assigned(list.size());
    const auto assign = [&](auto waiting, auto key) {
        for (std::size_t i = 0; i < written.size(); ++i)
            waiting.Add(key(written[i]), i);
        for (std::size_t i = 0; i < list.size(); ++i)
            if (!assigned[i]) assigned[i] = waiting.Take(key(list[i]), taken);
    };
    assign(Waiting<std::string>(), KeyOf);
    assign(Waiting<std::int64_t>(), [](const PublicMark& mark) { return mark.Position; });
    assign(Waiting<std::string>(), [](const PublicMark& mark) { return mark.Label; });
    return assigned;
}

}  // namespace

std::vector<Marker> Reconcile(const std::vector<PublicMark>& list, std::vector<Marker> exact,
                              const PublicList& kind) {
    std::vector<PublicMark> written;
    const std::size_t count = std::min(exact.size(), kind.Most);
    for (std::size_t i = 0; i < count; ++i)
        written.push_back(kind.Of(exact[i]));
    if (written == list) return exact;

    std::vector<Marker> markers;
    const auto assigned = Assign(list, written);
    for (std::size_t i = 0; i < list.size(); ++i) {
        Marker marker = assigned[i] ? exact[*assigned[i]] : Marker();
        const PublicMark held = kind.Of(marker);
        if (!assigned[i] || held.Position != list[i].Position)
            marker.Position = kind.ToFrames(list[i].Position);
        if (held.Label != list[i].Label) marker.Label = list[i].Label;
        markers.push_back(std::move(marker));
    }
    // What the full list had no room for, it cannot contradict.
    if (list.size() >= kind.Most)
        std::move(exact.begin() + static_cast<std::ptrdiff_t>(count), exact.end(),
                  std::back_inserter(markers));
    return markers;
}

}  // namespace mavrin2::ontiva
