#pragma once

#include <sndfile.h>

#include <cstdint>
#include <optional>
#include <string_view>

#include "companions/dusoro/sound/output_format.h"

namespace mavrin2::dusoro {

// The kinds of samples in the files that libsndfile reads.
enum class SndfileCoding : std::uint8_t { Integer, Float, Lossless, Lossy };

struct SndfileSubtype {
    int Format;  // SF_FORMAT_…
    std::string_view Name;
    std::int32_t Bits;
    SndfileCoding Coding;
    std::optional<dusoro::Coding> Written = {};  // where such files are written here
};

// Null for one that is not read here.
const SndfileSubtype* FindSubtype(int format);

}  // namespace mavrin2::dusoro
