#include "platform/linux/file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <system_error>

#include "platform/linux/base/file.h"
#include "platform/linux/temporary_folder.h"

namespace mavrin2::platform {
namespace {

// O_NONBLOCK, so that opening a pipe returns and can be refused; plain files do not heed it.
constexpr int EveryOpen = O_CLOEXEC | O_NONBLOCK;
constexpr mode_t UserOnly = S_IRUSR | S_IWUSR;

bool IsFolderPath(const char* path) {
    struct stat status = {};
    return ::stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

bool HasDots(const std::filesystem::path& path) {
    return std::any_of(path.begin(), path.end(),
                       [](const auto& step) { return step == "." || step == ".."; });
}

// The path under which the user has said that this file counts as a CD drive; empty if it does not.
std::filesystem::path DiscImageAt(const std::filesystem::path& path) {
    const char* const named = std::getenv("MAVRIN2_CD_IMAGES");
    std::istringstream images(named ? named : "");
    std::error_code error;
    for (std::string image; std::getline(images, image, ':');)
        if (std::filesystem::equivalent(image, path, error)) return image;
    return {};
}

class LinuxFiles final : public FileSystem {
public:
    std::unique_ptr<File> OpenForReading(const std::filesystem::path& path) override {
        return LinuxFile::Of(Descriptor(::open(path.c_str(), O_RDONLY | EveryOpen)));
    }

    std::unique_ptr<File> OpenForUpdate(const std::filesystem::path& path) override {
        return LinuxFile::Of(Descriptor(::open(path.c_str(), O_RDWR | EveryOpen)));
    }

    std::unique_ptr<File> Create(const std::filesystem::path& path) override {
        Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | EveryOpen, UserOnly));
        // Only a file with something in it is cut: ext4 takes one that was cut for one that is
        // being replaced, and hurries all that is written to the disk when it is closed.
        struct stat status = {};
        if (!file || ::fstat(file.Get(), &status) != 0) return nullptr;
        if (status.st_size != 0 && ::ftruncate(file.Get(), 0) != 0) return nullptr;
        return LinuxFile::Of(std::move(file));
    }

    std::filesystem::path CreateUniqueFile(const std::filesystem::path& folder,
                                           std::string_view prefix) override {
        if (folder.empty()) return {};
        constexpr int attempts = 100;
        for (int i = 0; i < attempts; ++i) {
            std::uint32_t number = 0;
            if (::getrandom(&number, sizeof(number), 0) != sizeof(number)) continue;
            char digits[9];
            std::snprintf(digits, sizeof(digits), "%08x", number);
            std::filesystem::path path = folder / (std::string(prefix) + digits + ".tmp");
            const Descriptor made(
                ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | EveryOpen, UserOnly));
            if (made) return path;
            if (errno != EEXIST && errno != EINTR) break;
        }
        return {};
    }

    bool Remove(const std::filesystem::path& path) override { return ::unlink(path.c_str()) == 0; }

    bool IsFolder(const std::filesystem::path& path) override { return IsFolderPath(path.c_str()); }

    std::vector<std::filesystem::path> List(const std::filesystem::path& folder,
                                            std::string_view prefix,
                                            std::string_view suffix) override {
        std::vector<std::filesystem::path> found;
        const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), ::closedir);
        if (!entries) return found;
        while (const dirent* const entry = ::readdir(entries.get())) {
            const std::string_view name = entry->d_name;
            if (name.size() < prefix.size() + suffix.size() || !name.starts_with(prefix) ||
                !name.ends_with(suffix)) {
                continue;
            }
            struct stat status = {};
            if (::fstatat(::dirfd(entries.get()), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) ==
                    0 &&
                S_ISREG(status.st_mode)) {
                found.push_back(folder / name);
            }
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    std::filesystem::path UsableFolder(const std::filesystem::path& folder) override {
        if (folder.empty()) return {};
        std::error_code error;
        std::filesystem::path path = std::filesystem::absolute(folder, error);
        if (error || !IsFolderPath(path.c_str()) ||
            ::faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) != 0) {
            return {};
        }
        // A step up from a linked folder leads elsewhere than its name says, so only the system
        // can take the dots out; names without dots stay as the user knows them.
        path = HasDots(path) ? std::filesystem::canonical(path, error) : path.lexically_normal();
        return error ? std::filesystem::path() : path / "";
    }

    std::filesystem::path TemporaryFolder() override { return PrivateTemporaryFolder(); }

    bool IsOnCdDrive(const std::filesystem::path& path) override {
        // What is yet to be made is on the drive of the folder that takes it.
        std::error_code error;
        std::filesystem::path existing = std::filesystem::absolute(path, error);
        struct stat status = {};
        while (::stat(existing.c_str(), &status) != 0) {
            if (!existing.has_relative_path()) return false;
            existing = existing.parent_path();
        }
        // The kernel's number of CD drives. A disc's file system may also be mounted from an image
        // of it; UDF by itself says nothing, for hard disks have it too.
        constexpr unsigned cdDrives = 11;
        struct statfs mounted = {};
        return ::major(status.st_dev) == cdDrives ||
               (S_ISBLK(status.st_mode) && ::major(status.st_rdev) == cdDrives) ||
               (S_ISREG(status.st_mode) && !DiscImageAt(existing).empty()) ||
               (::statfs(existing.c_str(), &mounted) == 0 && mounted.f_type == ISOFS_SUPER_MAGIC);
    }

    std::filesystem::path DriveOf(const std::filesystem::path& path) override {
        const std::filesystem::path drive = path.parent_path();
        const std::filesystem::path image = DiscImageAt(drive);
        return image.empty() ? drive : image;
    }
};

}  // namespace

std::shared_ptr<FileSystem> LinuxFileSystem() {
    return std::make_shared<LinuxFiles>();
}

}  // namespace mavrin2::platform
