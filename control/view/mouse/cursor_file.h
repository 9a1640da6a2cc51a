#pragma once

#include <filesystem>
#include <memory>

#include "platform/files.h"
#include "platform/pointer.h"

namespace mavrin2::view {

// The pointer in a cursor file (.cur): the one of its images that is nearest to 32 by 32 pixels,
// the one with most colours among those. Images are device-independent bitmaps of 1, 4, 8, 24 or 32
// bits with a mask. Null for what cannot be read or is no such file.
std::shared_ptr<const platform::PointerImage> ReadCursorFile(platform::FileSystem& files,
                                                             const std::filesystem::path& path);

}  // namespace mavrin2::view
