#pragma once

#include <functional>
#include <vector>

#include "companions/ontiva/info/sound_info.h"

namespace mavrin2::ontiva {

// What a list that other programs read can hold of a marker.
struct PublicMark {
    std::int64_t Position = 0;  // in the list's own unit
    std::string Label;

    bool operator==(const PublicMark&) const = default;
};

// How a list holds markers.
struct PublicList {
    std::function<PublicMark(const Marker&)> Of;
    std::function<std::int32_t(std::int64_t)> ToFrames;  // of a position
    std::size_t Most;                                    // markers that it can hold
};

// The markers of a file that has both such a list and the exact markers that were written with it.
// Where they disagree another program has changed the list, and the list holds: markers that it no
// longer has are gone, new ones are added, moved or renamed ones keep the rest of what they had.
std::vector<Marker> Reconcile(const std::vector<PublicMark>& list, std::vector<Marker> exact,
                              const PublicList& kind);

}  // namespace mavrin2::ontiva
