#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "automation/safe_array.h"
#include "control/editor/block_buffer.h"
#include "control/editor/wave_stream.h"
#include "control/signal/quantity.h"

namespace mavrin2::processing {

// A part of the document in memory, as the arrays that the transform companion works on: either one
// with the samples as they are stored, or one for each channel of stereo.
class TransformRegion {
public:
    // Of zeros. Throws std::bad_alloc.
    TransformRegion(signal::Bytes length, bool split, platform::BlockMemory& memory);

    // Reads the region from where `source` is. False when it could not be read whole.
    bool Load(editor::WaveStream& source);

    std::size_t BlockCount() const { return blocks_.size(); }
    // The array of channel 0 or 1, or of the whole region. A companion may change it, or put
    // another one in its place.
    SAFEARRAY** Block(std::size_t channel) { return blocks_[channel].Address(); }

    // Whether each block is still an array of samples.
    bool IsValid() const;

    // Appends the region to `target`. The left channel decides the length: what the right one has
    // more is left out, what it has less is silence. False when writing failed.
    bool Write(editor::WaveStream& target);

private:
    using Samples = automation::SafeArray<std::int16_t>;

    // A place for up to `count` frames of stereo that `file` has or gets where it is.
    std::span<std::int16_t> FramesAt(const editor::WaveStream& file, std::size_t count);

    std::vector<Samples> blocks_;
    editor::BlockBuffer buffer_;
};

}  // namespace mavrin2::processing
