#pragma once

#include <cstdint>

#include "companions/dusoro/backends/ffmpeg/av_input.h"

namespace mavrin2::dusoro {

struct StreamLength {
    std::int64_t Frames = 0;
    // The file says where its sound ends: what decoders deliver after that is padding.
    bool Exact = false;
};

// The length of one stream in sample frames at `rate`. `skipped` are the frames that the demuxer
// has told to drop from the beginning; `chained` tells an Ogg file with several streams one behind
// the other.
StreamLength MeasureStream(const AvInput& input, const AVStream& stream, std::int32_t rate,
                           std::int64_t skipped, bool chained);

}  // namespace mavrin2::dusoro
