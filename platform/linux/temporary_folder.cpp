#include "platform/linux/temporary_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "platform/linux/descriptor.h"

namespace mavrin2::platform {
namespace {

std::filesystem::path SharedTemporaryFolder() {
    if (const char* const named = ::secure_getenv("TMPDIR")) {
        struct stat status = {};
        if (named[0] == '/' && ::stat(named, &status) == 0 && S_ISDIR(status.st_mode)) return named;
    }
    return "/tmp";
}

// Asked of the open folder and not of its name, which may change hands between two calls.
bool IsOurs(const std::filesystem::path& path) {
    const Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!folder || ::fstat(folder.Get(), &status) != 0 || status.st_uid != ::geteuid()) {
        return false;
    }
    return (status.st_mode & 07777) == S_IRWXU || ::fchmod(folder.Get(), S_IRWXU) == 0;
}

}  // namespace

std::filesystem::path PrivateTemporaryFolder() {
    constexpr int attempts = 10;
    const std::string name = "mavrin2-" + std::to_string(::geteuid());
    const std::filesystem::path shared = SharedTemporaryFolder();
    for (int i = 0; i < attempts; ++i) {
        std::filesystem::path path = shared / (i == 0 ? name : name + "-" + std::to_string(i));
        // Whether it is there already is found out by looking at what is there.
        ::mkdir(path.c_str(), S_IRWXU);
        if (IsOurs(path)) return path / "";
    }
    return {};
}

}  // namespace mavrin2::platform
