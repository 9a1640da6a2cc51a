#include "platform/linux/private_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <tuple>

#include "platform/linux/base/descriptor.h"

namespace mavrin2::platform {
namespace {

// Seconds and nanoseconds; 0 where the file system does not keep it.
using BirthTime = std::tuple<std::int64_t, std::uint32_t>;

// When the folder was created, if it is a folder of this user's that only this user can enter, or
// could be made so. Asked of the open folder: its name may change hands between two calls.
std::optional<BirthTime> BirthIfOurs(const std::filesystem::path& path) {
    const Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct statx status = {};
    if (!folder ||
        ::statx(folder.Get(), "", AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_BTIME, &status) != 0)
        return std::nullopt;
    if (status.stx_uid != ::geteuid()) return std::nullopt;
    if ((status.stx_mode & 07777) != S_IRWXU && ::fchmod(folder.Get(), S_IRWXU) != 0)
        return std::nullopt;
    return BirthTime(status.stx_btime.tv_sec, status.stx_btime.tv_nsec);
}

// Of our folders whose names begin like this: the oldest, so that processes that create one at the
// same time agree. Empty if there are none.
std::filesystem::path OldestOfOurs(const std::filesystem::path& shared, std::string_view prefix) {
    std::filesystem::path oldest;
    BirthTime birth;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(shared.c_str()), ::closedir);
    while (const dirent* const entry = entries ? ::readdir(entries.get()) : nullptr) {
        if (!std::string_view(entry->d_name).starts_with(prefix)) continue;
        const std::filesystem::path path = shared / entry->d_name;
        const auto born = BirthIfOurs(path);
        if (!born || (!oldest.empty() && std::tie(birth, oldest) < std::tie(*born, path))) continue;
        oldest = path;
        birth = *born;
    }
    return oldest.empty() ? oldest : oldest / "";
}

}  // namespace

std::filesystem::path PrivateFolderIn(const std::filesystem::path& shared) {
    const std::string name = "mavrin2-" + std::to_string(::geteuid());
    const std::filesystem::path usual = shared / name;
    if (BirthIfOurs(usual)) return usual / "";
    // Before the usual one is created: processes that found its name taken use another one.
    if (auto other = OldestOfOurs(shared, name + "-"); !other.empty()) return other;
    ::mkdir(usual.c_str(), S_IRWXU);
    if (BirthIfOurs(usual)) return usual / "";
    std::string unusual = shared / (name + "-XXXXXX");
    ::mkdtemp(unusual.data());
    return OldestOfOurs(shared, name + "-");
}

bool IsPrivateFolder(const std::filesystem::path& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & 07777) == S_IRWXU;
}

}  // namespace mavrin2::platform
