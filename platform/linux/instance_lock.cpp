#include "platform/linux/instance_lock.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/linux/descriptor.h"

namespace mavrin2::platform {
namespace {

// One open file description, which is what these locks belong to: a second one sees them in the
// same process as well as in another, the kernel frees them with it, and raising one to exclusive
// either succeeds or leaves it as it was.
class Holder {
public:
    explicit Holder(std::filesystem::path path) : path_(std::move(path)) {
        // A cleaner of old files may take the file away between opening and locking it.
        do {
            file_ = Descriptor(::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                                      S_IRUSR | S_IWUSR));
        } while (file_ && Lock(F_OFD_SETLKW, F_RDLCK) && !IsStillNamed());
    }

    bool Raise() {
        // Those who came after the file was taken away hold another one.
        return file_ && !sole_ && IsStillNamed() && (sole_ = Lock(F_OFD_SETLK, F_WRLCK));
    }

    void Lower() {
        Lock(F_OFD_SETLK, F_RDLCK);
        sole_ = false;
    }

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
    explicit LinuxLock(const std::filesystem::path& path)
        : holder_(std::make_shared<Holder>(path)) {}

    std::unique_ptr<Sole> TryBecomeSole() override {
        if (!holder_->Raise()) return nullptr;
        return std::make_unique<LinuxSole>(holder_);
    }

private:
    std::shared_ptr<Holder> holder_;
};

}  // namespace

std::unique_ptr<InstanceLock> LinuxInstanceLock(const std::filesystem::path& path) {
    return std::make_unique<LinuxLock>(path);
}

}  // namespace mavrin2::platform
