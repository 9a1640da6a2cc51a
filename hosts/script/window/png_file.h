#pragma once

#include <filesystem>

#include "platform/pixels.h"

namespace mavrin2::script {

// Writes a picture, at least one pixel wide and high, as a PNG file with 8 bits a colour. Throws
// std::system_error; what there is of the file then stays.
void WritePng(const std::filesystem::path& file, const platform::Pixels& pixels);

}  // namespace mavrin2::script
