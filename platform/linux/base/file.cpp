#include "platform/linux/base/file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace mavrin2::platform {

static_assert(sizeof(off_t) == sizeof(std::int64_t));

std::unique_ptr<File> LinuxFile::Of(Descriptor descriptor) {
    struct stat status = {};
    // Pipes and devices have no offsets and may block for ever.
    if (!descriptor || ::fstat(descriptor.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return nullptr;
    }
    return std::make_unique<LinuxFile>(std::move(descriptor));
}

std::optional<std::size_t> LinuxFile::Read(std::int64_t offset, std::span<std::byte> target) {
    std::size_t done = 0;
    while (done < target.size()) {
        const ssize_t count = ::pread(descriptor_.Get(), target.data() + done, target.size() - done,
                                      offset + static_cast<std::int64_t>(done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

bool LinuxFile::Write(std::int64_t offset, std::span<const std::byte> source) {
    while (!source.empty()) {
        const ssize_t count = ::pwrite(descriptor_.Get(), source.data(), source.size(), offset);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        offset += count;
        source = source.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

std::optional<std::int64_t> LinuxFile::Length() {
    struct stat status = {};
    if (::fstat(descriptor_.Get(), &status) != 0) return std::nullopt;
    return status.st_size;
}

bool LinuxFile::Truncate(std::int64_t length) {
    return ::ftruncate(descriptor_.Get(), length) == 0;
}

}  // namespace mavrin2::platform
