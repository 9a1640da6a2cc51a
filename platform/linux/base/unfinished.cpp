#include "platform/linux/base/unfinished.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/base/last_error.h"

namespace mavrin2::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Prefix = ".mavrin2-";
constexpr std::string_view Suffix = ".tmp";
constexpr std::size_t Digits = 16;
constexpr int MostTries = 100;

fs::path NewName(const fs::path& folder) {
    return folder / (std::string(Prefix) + RandomDigits(Digits) + std::string(Suffix));
}

bool IsUnfinishedName(std::string_view name) {
    if (name.size() != Prefix.size() + Digits + Suffix.size() || !name.starts_with(Prefix) ||
        !name.ends_with(Suffix))
        return false;
    const auto digits = name.substr(Prefix.size(), Digits);
    return digits.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

// Waits while another process looks whether this is abandoned. Where the file system has no locks
// nothing counts as abandoned, so that going without one does no harm.
void Lock(int descriptor) {
    while (::flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
    }
}

// Whether a name still leads to what was opened by it.
bool IsStillNamed(int descriptor, const fs::path& name) {
    struct stat open = {};
    struct stat named = {};
    return ::fstat(descriptor, &open) == 0 && ::lstat(name.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

bool IsOwn(int descriptor) {
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && status.st_uid == ::geteuid();
}

std::string NameInProcess(int file) {
    return "/proc/self/fd/" + std::to_string(file);
}

void RemoveIfAbandoned(const fs::path& path) {
    const Descriptor entry(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!entry || !IsOwn(entry.Get()) || ::flock(entry.Get(), LOCK_EX | LOCK_NB) != 0 ||
        !IsStillNamed(entry.Get(), path))
        return;
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

}  // namespace

std::string RandomDigits(std::size_t count) {
    std::uint64_t number = 0;
    while (::getrandom(&number, sizeof(number), 0) != sizeof(number)) {
    }
    char digits[17];
    std::snprintf(digits, sizeof(digits), "%016llx", static_cast<unsigned long long>(number));
    return {digits, count};
}

UnfinishedFile CreateUnfinishedFile(const fs::path& folder, std::error_code& error) {
    const fs::path parent = folder.empty() ? "." : folder;
    UnfinishedFile made;
    made.File = Descriptor(::open(parent.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666));
    if (made.File && ::access(NameInProcess(made.File.Get()).c_str(), F_OK) == 0) {
        Lock(made.File.Get());
        return made;
    }
    for (int i = 0; i < MostTries; ++i) {
        made.Name = NewName(folder);
        made.File = Descriptor(
            ::open(made.Name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
        if (!made.File) {
            if (errno == EEXIST) continue;
            break;
        }
        // Before it was locked it looked abandoned.
        Lock(made.File.Get());
        if (IsStillNamed(made.File.Get(), made.Name)) return made;
    }
    error = LastError();
    return {};
}

std::error_code LinkFile(int file, const fs::path& name) {
    const bool linked = ::linkat(AT_FDCWD, NameInProcess(file).c_str(), AT_FDCWD, name.c_str(),
                                 AT_SYMLINK_FOLLOW) == 0;
    return linked ? std::error_code() : LastError();
}

std::error_code NameUnfinishedFile(UnfinishedFile& file, const fs::path& folder) {
    std::error_code error;
    for (int i = 0; i < MostTries && file.Name.empty(); ++i) {
        fs::path name = NewName(folder);
        error = LinkFile(file.File.Get(), name);
        if (!error) file.Name = std::move(name);  // which needs no memory
        if (error && error != std::errc::file_exists) break;
    }
    return error;
}

UnfinishedFolder CreateUnfinishedFolder(const fs::path& folder, std::error_code& error) {
    for (int i = 0; i < MostTries; ++i) {
        UnfinishedFolder made;
        made.Name = NewName(folder);
        if (::mkdir(made.Name.c_str(), S_IRWXU) != 0) {
            if (errno == EEXIST) continue;
            break;
        }
        made.Folder =
            Descriptor(::open(made.Name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (made.Folder) Lock(made.Folder.Get());
        if (made.Folder && IsStillNamed(made.Folder.Get(), made.Name)) return made;
    }
    error = LastError();
    return {};
}

void RemoveAbandoned(const fs::path& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(
        ::opendir(folder.empty() ? "." : folder.c_str()), ::closedir);
    std::vector<fs::path> found;
    while (const dirent* const entry = entries ? ::readdir(entries.get()) : nullptr) {
        if (IsUnfinishedName(entry->d_name)) found.push_back(folder / entry->d_name);
    }
    std::ranges::for_each(found, RemoveIfAbandoned);
}

}  // namespace mavrin2::platform
