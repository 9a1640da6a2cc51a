#pragma once

#include <cstdint>
#include <optional>

#include "platform/files.h"

namespace mavrin2::dusoro {

struct MpegLength {
    std::int64_t Frames = 0;  // sample frames after those the decoder drops
    bool Exact = false;       // the file states the encoder's delay and padding
};

// The length of an MPEG audio file (layers I to III without a container): from the tag in its first
// frame where there is one that fits the file, else by walking through the frames' headers, which
// takes half a percent of the time of decoding them. Nothing when neither can be done.
std::optional<MpegLength> MeasureMpeg(platform::File& file);

// Whether such a file begins with two frames of one kind, tags aside.
bool BeginsAsMpeg(platform::File& file);

}  // namespace mavrin2::dusoro
