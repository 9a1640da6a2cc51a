#include "hosts/script/commands/input_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "hosts/script/commands/cd_drives.h"
#include "hosts/script/commands/command.h"

namespace mavrin2::script {

// The system's reason is clearer than a sound library's.
void CheckReadable(const std::string& file) {
    if (IsCdTrack(file))
        throw Failure(file, "is a track of a CD; try `mavrin2 convert` to make a file of it first");
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) throw Failure(file, error.message());
    if (std::filesystem::is_directory(status))
        throw Failure(file, std::generic_category().message(EISDIR));
    // Opening a pipe would wait.
    if (!std::filesystem::is_regular_file(status)) throw Failure(file, "not a regular file");
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(std::fopen(file.c_str(), "rb"),
                                                                 &std::fclose);
    if (!opened) throw Failure(file, std::generic_category().message(errno));
}

}  // namespace mavrin2::script
