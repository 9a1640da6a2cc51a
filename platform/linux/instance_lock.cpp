#include "platform/linux/instance_lock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <string>

#include "platform/linux/base/descriptor.h"
#include "platform/linux/private_folder.h"

namespace mavrin2::platform {
namespace {

// A lock on one file. It belongs to the open file description: another one sees it in the same
// process as well as in others, the kernel frees it with the description, and raising it to
// exclusive either succeeds or leaves it as it was.
class FileLock {
public:
    explicit FileLock(std::filesystem::path path) : path_(std::move(path)) {
        // A cleaner of old files may take the file away between opening and locking it.
        do {
            file_ = Descriptor(::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                                      S_IRUSR | S_IWUSR));
        } while (file_ && Lock(F_OFD_SETLKW, F_RDLCK) && !IsStillNamed());
    }

    bool Raise() {
        // Newcomers lock another file once this one has been taken away.
        return file_ && IsStillNamed() && Lock(F_OFD_SETLK, F_WRLCK);
    }

    void Lower() { Lock(F_OFD_SETLK, F_RDLCK); }

private:
    bool Lock(int command, short type) {
        struct flock lock = {};
        lock.l_type = type;
        lock.l_whence = SEEK_SET;
        while (::fcntl(file_.Get(), command, &lock) != 0) {
            if (errno != EINTR) return false;
        }
        return true;
    }

    bool IsStillNamed() const {
        struct stat open = {};
        struct stat named = {};
        return ::fstat(file_.Get(), &open) == 0 && ::lstat(path_.c_str(), &named) == 0 &&
               open.st_dev == named.st_dev && open.st_ino == named.st_ino;
    }

    std::filesystem::path path_;
    Descriptor file_;
};

// The locks of one control on all the files.
class Holder {
public:
    // In the order of the files, which is the same for everybody: newcomers wait at the first.
    explicit Holder(const std::vector<std::filesystem::path>& files)
        : locks_(files.begin(), files.end()) {}

    bool Raise() {
        if (sole_ || locks_.empty()) return false;
        const auto refused = std::ranges::find_if_not(locks_, &FileLock::Raise);
        sole_ = refused == locks_.end();
        if (!sole_) std::for_each(locks_.begin(), refused, std::mem_fn(&FileLock::Lower));
        return sole_;
    }

    void Lower() {
        std::ranges::for_each(locks_, &FileLock::Lower);
        sole_ = false;
    }

private:
    std::vector<FileLock> locks_;
    bool sole_ = false;
};

class LinuxSole final : public InstanceLock::Sole {
public:
    explicit LinuxSole(std::shared_ptr<Holder> holder) : holder_(std::move(holder)) {}
    ~LinuxSole() override { holder_->Lower(); }
    LinuxSole(const LinuxSole&) = delete;
    LinuxSole& operator=(const LinuxSole&) = delete;

private:
    std::shared_ptr<Holder> holder_;
};

class LinuxLock final : public InstanceLock {
public:
    explicit LinuxLock(const std::vector<std::filesystem::path>& files)
        : holder_(std::make_shared<Holder>(files)) {}

    std::unique_ptr<Sole> TryBecomeSole() override {
        if (!holder_->Raise()) return nullptr;
        return std::make_unique<LinuxSole>(holder_);
    }

private:
    std::shared_ptr<Holder> holder_;
};

}  // namespace

std::vector<std::filesystem::path> InstanceLockFiles() {
    std::vector<std::filesystem::path> files;
    if (const auto folder = PrivateFolderIn("/tmp"); !folder.empty())
        files.push_back(folder / "instances.lock");
    const auto runtime = std::filesystem::path("/run/user") / std::to_string(::geteuid());
    if (IsPrivateFolder(runtime)) files.push_back(runtime / "mavrin2-instances.lock");
    return files;
}

std::unique_ptr<InstanceLock> LinuxInstanceLock(const std::vector<std::filesystem::path>& files) {
    return std::make_unique<LinuxLock>(files);
}

}  // namespace mavrin2::platform
