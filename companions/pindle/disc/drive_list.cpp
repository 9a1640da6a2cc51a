#include "companions/pindle/disc/drive_list.h"

#include <filesystem>
#include <sstream>

namespace mavrin2::pindle {
namespace {

// A word of the table, in which a backslash and three octal digits encode a character.
std::string Plain(std::string_view word) {
    const auto isOctal = [&](std::size_t at) {
        return at < word.size() && word[at] >= '0' && word[at] <= '7';
    };
    std::string text;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '\\' && isOctal(i + 1) && isOctal(i + 2) && isOctal(i + 3)) {
            const int code =
                (word[i + 1] - '0') * 64 + (word[i + 2] - '0') * 8 + (word[i + 3] - '0');
            text.push_back(static_cast<char>(code));
            i += 3;
        } else {
            text.push_back(word[i]);
        }
    }
    return text;
}

// Several names can lead to one device.
bool IsSameDevice(const std::string& a, const std::string& b) {
    std::error_code error;
    return a == b || (std::filesystem::exists(a, error) && std::filesystem::exists(b, error) &&
                      std::filesystem::equivalent(a, b, error));
}

void AddMounts(std::vector<Drive>& drives, const DriveSources& sources, const std::string& device) {
    std::istringstream table(sources.Mounts);
    for (std::string line; std::getline(table, line);) {
        std::istringstream words(line);
        std::string source;
        std::string folder;
        if (words >> source >> folder && source.starts_with('/') &&
            IsSameDevice(Plain(source), device))
            drives.push_back({Plain(folder), device});
    }
}

}  // namespace

std::vector<Drive> ListDrives(const DriveSources& sources) {
    std::vector<Drive> drives;
    for (const std::string& device : sources.Devices) {
        drives.push_back({device, device});
        AddMounts(drives, sources, device);
    }
    std::istringstream images(sources.Images);
    for (std::string image; std::getline(images, image, ':');)
        if (!image.empty()) drives.push_back({image, image});
    return drives;
}

}  // namespace mavrin2::pindle
