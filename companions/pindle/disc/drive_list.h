#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mavrin2::pindle {

struct Drive {
    std::string Name;    // the part of a track's path before the last separator
    std::string Source;  // the drive or image to open
};

// What drives are made of.
struct DriveSources {
    std::vector<std::string> Devices;  // the system's names
    // The system's table of mounted file systems, a line each: source, folder, further words. A
    // blank within a word is written \040.
    std::string Mounts;
    std::string Images;  // paths of disc images, with colons between them
};

// Each device under its name and under each folder where it is mounted, then the images.
std::vector<Drive> ListDrives(const DriveSources& sources);

}  // namespace mavrin2::pindle
