#pragma once

#include <cstdint>
#include <functional>

#include "control/editor/edit_settings.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {

// The bytes that a copy loop moves at a time: FileBufferSize milliseconds of the source, or exactly
// one second when the whole stretch is not longer than that.
std::uint32_t BlockSize(const EditSettings& settings, const WaveStream& source,
                        std::int64_t stretch);

// How far a stream has been read, 0 … 100, rounded down.
int PercentRead(const WaveStream& source);

enum class CopyEnd {
    Complete,  // the end of the stretch or of the source
    Stopped,   // `proceed` returned false
    Failed     // reading or writing failed
};

// Copies from `source` to `target`, each from its current position, until `target` is `end` bytes
// long. Calls `proceed` after each block.
CopyEnd CopyBlocks(WaveStream& source, WaveStream& target, std::int64_t end, std::uint32_t block,
                   BlockBuffer& buffer, const std::function<bool()>& proceed);

}  // namespace mavrin2::editor
