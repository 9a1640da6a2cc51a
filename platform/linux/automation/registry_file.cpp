#include "platform/linux/automation/registry_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <system_error>

#include "platform/linux/base/descriptor.h"
#include "platform/linux/base/last_error.h"
#include "platform/replacement_file.h"

namespace mavrin2::platform::automation {
namespace {

// No registry comes near it; whatever does is something else.
constexpr off_t LargestFile = 16 << 20;

// A file that was changed this recently may change again without a sign of it in its times.
constexpr std::chrono::milliseconds SettlingTime{100};

struct Identity {
    dev_t Device = 0;
    ino_t Inode = 0;
    off_t Size = 0;
    timespec Changed = {};

    bool operator==(const Identity& other) const {
        return Device == other.Device && Inode == other.Inode && Size == other.Size &&
               Changed.tv_sec == other.Changed.tv_sec && Changed.tv_nsec == other.Changed.tv_nsec;
    }
};

Identity IdentityOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_size, status.st_ctim};
}

bool HasSettled(const Identity& identity) {
    const auto changed = std::chrono::seconds(identity.Changed.tv_sec) +
                         std::chrono::nanoseconds(identity.Changed.tv_nsec);
    return std::chrono::system_clock::now().time_since_epoch() - changed > SettlingTime;
}

// What was read last, so that creating an object does not read the file each time.
struct Cache {
    struct Item {
        Identity Source;
        std::shared_ptr<const RegistryText> Text;
    };
    std::mutex Guard;
    std::map<std::filesystem::path, Item> Items;
};

Cache& ProcessCache() {
    // Never destroyed: a component may be created while the process ends.
    static Cache& cache = *new Cache;
    return cache;
}

std::optional<std::string> ReadAll(int file, off_t size) {
    if (size > LargestFile) return std::nullopt;
    std::string text(static_cast<std::size_t>(size), '\0');
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count =
            ::pread(file, text.data() + done, text.size() - done, static_cast<off_t>(done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
    }
    text.resize(done);
    return text;
}

HRESULT WriteFailure(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
                   error == std::errc::read_only_file_system
               ? E_ACCESSDENIED
               : REGDB_E_WRITEREGDB;
}

std::filesystem::path Beside(const std::filesystem::path& path, const char* suffix) {
    std::filesystem::path beside = path;
    return beside += suffix;
}

Descriptor LockBeside(const std::filesystem::path& path) {
    Descriptor lock(
        ::open(Beside(path, ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666));
    while (lock && ::flock(lock.Get(), LOCK_EX) != 0) {
        if (errno != EINTR) return {};
    }
    return lock;
}

HRESULT Replace(const std::filesystem::path& path, const std::string& text) {
    std::error_code error;
    const auto file = SystemReplacementFiles()->Create(path, error);
    if (!file) return WriteFailure(error);
    file->Write(0, std::as_bytes(std::span(text)));
    error = file->Commit();
    return error ? WriteFailure(error) : S_OK;
}

}  // namespace

std::shared_ptr<const RegistryText> RegistryFile::Read() const {
    const Descriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file || ::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return nullptr;
    const Identity identity = IdentityOf(status);

    Cache& cache = ProcessCache();
    const std::lock_guard guard(cache.Guard);
    const auto found = cache.Items.find(path_);
    if (found != cache.Items.end() && found->second.Source == identity) return found->second.Text;
    const auto text = ReadAll(file.Get(), status.st_size);
    if (!text) return nullptr;
    auto parsed = std::make_shared<const RegistryText>(RegistryText::Parse(*text));
    if (HasSettled(identity)) {
        cache.Items[path_] = {identity, parsed};
    } else {
        cache.Items.erase(path_);
    }
    return parsed;
}

HRESULT RegistryFile::Update(const std::function<HRESULT(RegistryText&)>& change) const {
    std::error_code ignored;
    // When this fails, so does making the lock file.
    std::filesystem::create_directories(path_.parent_path(), ignored);
    const Descriptor lock = LockBeside(path_);
    if (!lock) return WriteFailure(LastError());

    const auto present = Read();
    // Unreadable is not empty: the contents must not be lost.
    if (!present && ::access(path_.c_str(), F_OK) == 0) return REGDB_E_READREGDB;
    RegistryText text = present ? *present : RegistryText();
    const HRESULT changed = change(text);
    const HRESULT written = Replace(path_, text.Format());
    return FAILED(changed) ? changed : written;
}

}  // namespace mavrin2::platform::automation
