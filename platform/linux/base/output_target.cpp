#include "platform/linux/base/output_target.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/base/descriptor.h"
#include "platform/linux/base/last_error.h"

namespace mavrin2::platform {
namespace {

namespace fs = std::filesystem;

// Where a chain of symbolic links ends, whether or not a file is there; empty for an endless one.
fs::path FollowLinks(fs::path path, std::error_code& error) {
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        std::error_code ignored;
        if (!fs::is_symlink(fs::symlink_status(path, ignored))) return path;
        const fs::path link = fs::read_symlink(path, error);
        if (error) return {};
        path = path.parent_path() / link;  // an absolute link replaces all
    }
    error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return {};
}

}  // namespace

fs::path OutputTarget(const fs::path& path, std::error_code& error) {
    error.clear();
    // The kernel does not follow links that other users have put into a common folder; reading them
    // here would.
    const Descriptor present(::open(path.c_str(), O_PATH | O_CLOEXEC));
    if (!present && errno != ENOENT) {
        error = LastError();
        return {};
    }
    fs::path target = FollowLinks(path, error);
    if (error) return {};
    if (!target.has_filename()) {
        error = std::make_error_code(path.empty() ? std::errc::no_such_file_or_directory
                                                  : std::errc::is_a_directory);
        return {};
    }
    struct stat status = {};
    if (::stat(target.c_str(), &status) != 0) {
        if (errno == ENOENT) return target;
        error = LastError();
    } else if (S_ISDIR(status.st_mode)) {
        error = std::make_error_code(std::errc::is_a_directory);
    } else if (!S_ISREG(status.st_mode)) {
        error = std::make_error_code(std::errc::invalid_argument);
    } else if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
        error = LastError();
    }
    return error ? fs::path() : target;
}

}  // namespace mavrin2::platform
