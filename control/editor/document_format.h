#pragma once

#include <cstdint>
#include <string>

#include "control/signal/quantity.h"

namespace mavrin2::editor {

using signal::Bytes;
using signal::Frames;

// The format of the open document, or of the last one. Samples are 16-bit whatever BitsPerSample
// says: that is what the opened source had.
struct DocumentFormat {
    std::int32_t Frequency = 8000;  // hertz
    std::int32_t Channels = 1;      // 1 or 2
    std::int32_t BitsPerSample = 16;
    std::string FormatDescription;  // as shown to the user

    Bytes FrameSize() const { return Bytes(std::int64_t{Channels} * 2); }

    Frames ToFrames(Bytes position) const { return Frames(position.Count() / 2 / Channels); }
    // In 32 bits, as hosts count: what does not fit wraps.
    Bytes ToBytes(std::int32_t frames) const {
        return Bytes(static_cast<std::int32_t>(static_cast<std::uint32_t>(Channels) * 2u *
                                               static_cast<std::uint32_t>(frames)));
    }
};

}  // namespace mavrin2::editor
