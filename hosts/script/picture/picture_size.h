#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mavrin2::script {

// Of a picture, in pixels.
struct PictureSize {
    int Width = 0;
    int Height = 0;

    bool operator==(const PictureSize&) const = default;
};

// Reads `1200x300` or a name such as `hd`; nothing for anything else and for what is larger than a
// control draws.
std::optional<PictureSize> PictureSizeOf(std::string_view text);

// All names with their sizes, as a line of help has them: "hd (1280x720), …".
std::string PictureSizeNames();

}  // namespace mavrin2::script
