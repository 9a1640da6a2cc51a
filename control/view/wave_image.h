#pragma once

#include <filesystem>

#include "control/view/surface.h"
#include "platform/files.h"

namespace mavrin2::view {

// Writes a picture as a Windows bitmap file of 32 bits with colour masks, its bottom row first. A
// file that cannot be made is not made; one that cannot be completed stays incomplete.
void WriteWaveImage(platform::FileSystem& files, const std::filesystem::path& path,
                    const Surface& picture);

}  // namespace mavrin2::view
