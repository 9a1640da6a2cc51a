#include "hosts/script/lua/file_error.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

namespace mavrin2::script {

std::string SystemReason(const std::string& file, bool written) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (std::filesystem::is_directory(status)) return std::generic_category().message(EISDIR);
    if (std::filesystem::exists(status)) {
        // Opening a pipe would wait.
        if (written || !std::filesystem::is_regular_file(status)) return {};
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(std::fopen(file.c_str(), "rb"),
                                                                     &std::fclose);
        return opened ? std::string() : std::generic_category().message(errno);
    }
    if (!written) return error.message();
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    const auto place = std::filesystem::status(folder.empty() ? "." : folder, error);
    if (!std::filesystem::exists(place)) return error.message();
    return std::filesystem::is_directory(place) ? std::string()
                                                : std::generic_category().message(ENOTDIR);
}

}  // namespace mavrin2::script
