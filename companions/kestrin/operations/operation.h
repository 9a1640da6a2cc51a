#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <variant>
#include <vector>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/libraries.h"
#include "companions/kestrin/kernels/noise.h"
#include "companions/kestrin/kernels/progress.h"
#include "companions/kestrin/operations/channel_pair.h"
#include "companions/kestrin/operations/parameter.h"

namespace mavrin2::kestrin {

// One call of an operation.
struct Request {
    // Within the ranges of the operation's parameters, in their order. Arrays come after the single
    // values.
    std::span<const double> Values;
    std::span<const std::vector<float>> Arrays;
    std::span<const std::int16_t> Sound;  // as it was given
    double Rate;                          // Hz
    std::size_t Channels;                 // of interleaved sounds, if given
    const Libraries& Library;
    RandomNumbers& Random;
    ChannelPair& Pair;
    Progress& Report;
};

// The sound keeps its length and goes through an effect, from its first sample to its last. Null
// where it stays as it is.
using MakeEffect = std::unique_ptr<Effect> (*)(const Request&);

// The samples are moved, or some of them removed. Returns how many are left.
using Rearrange = std::size_t (*)(const Request&, std::span<std::int16_t>);

// A sound of another length is made.
struct Rendering {
    std::size_t (*Length)(const Request&);  // of what will be made
    void (*Run)(const Request&, std::span<std::int16_t> to);
};

struct Operation {
    const char* Name;
    std::vector<Parameter> Values = {};
    std::vector<Parameter> Arrays = {};  // the range of each element
    std::variant<MakeEffect, Rearrange, Rendering> How;
    // Whether the smoothing switches have a meaning: not where the operation itself decides what
    // becomes of the region's ends.
    bool Smoothed = true;
    // Samples of one frame of the sounds it is for.
    std::size_t FrameSize = 1;
    // Share of the time that making the effect takes.
    double Analysis = 0;
};

}  // namespace mavrin2::kestrin
