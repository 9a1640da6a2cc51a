#pragma once

#include <cstddef>
#include <utility>

#include "companions/kestrin/kernels/time_stretcher.h"

namespace mavrin2::kestrin {

// The two channels of a sound come one after the other and must stay in phase. This remembers how
// the first one was stretched until the second one comes, which is known by being as long.
class ChannelPair {
public:
    // What the sound before has left for one of this length, or nothing.
    StretchPath TakeGuide(std::size_t from, std::size_t to) {
        const bool belongs = from == from_ && to == to_;
        StretchPath guide = belongs ? std::move(path_) : StretchPath();
        Forget();
        return guide;
    }
    void Keep(std::size_t from, std::size_t to, StretchPath path) {
        from_ = from;
        to_ = to;
        path_ = std::move(path);
    }
    // The next sound begins a pair.
    void Forget() { *this = {}; }

private:
    std::size_t from_ = 0;
    std::size_t to_ = 0;
    StretchPath path_;
};

}  // namespace mavrin2::kestrin
