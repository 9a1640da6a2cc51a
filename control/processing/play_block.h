#pragma once

#include <cstdint>
#include <filesystem>

#include "control/editor/document_format.h"
#include "control/processing/device_companion.h"
#include "control/processing/transport_settings.h"
#include "platform/files.h"

namespace mavrin2::processing {

// A block of a work file, as the player gets it.
struct PlayBlock {
    SamplesBlock Samples;
    signal::Bytes Taken;  // of the work file; 0 when there is no block
};

// Reads `length` bytes at `position`, fewer at the end. At a changed speed they are converted to as
// many samples as make them last that much longer, each block by itself. Throws std::bad_alloc.
PlayBlock ReadPlayBlock(platform::FileSystem& files, const std::filesystem::path& workFile,
                        const editor::DocumentFormat& format, signal::Bytes position,
                        signal::Bytes length, const PlaySpeed& speed);

}  // namespace mavrin2::processing
