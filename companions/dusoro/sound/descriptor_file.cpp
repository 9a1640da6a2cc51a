#include "companions/dusoro/sound/descriptor_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace mavrin2::dusoro {

std::optional<std::size_t> DescriptorFile::Read(std::int64_t offset, std::span<std::byte> target) {
    std::size_t done = 0;
    while (done < target.size()) {
        const ssize_t got = pread(descriptor_, target.data() + done, target.size() - done,
                                  offset + static_cast<std::int64_t>(done));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

bool DescriptorFile::Write(std::int64_t offset, std::span<const std::byte> source) {
    while (!source.empty()) {
        const ssize_t put = pwrite(descriptor_, source.data(), source.size(), offset);
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return false;
        source = source.subspan(static_cast<std::size_t>(put));
        offset += put;
    }
    return true;
}

std::optional<std::int64_t> DescriptorFile::Length() {
    struct stat status {};
    if (fstat(descriptor_, &status) != 0) return std::nullopt;
    return status.st_size;
}

bool DescriptorFile::Close() {
    const int descriptor = std::exchange(descriptor_, -1);
    return descriptor < 0 || close(descriptor) == 0;
}

std::unique_ptr<platform::File> OpenInput(const std::filesystem::path& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (descriptor < 0) return nullptr;
    auto file = std::make_unique<DescriptorFile>(descriptor);
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return nullptr;
    return file;
}

}  // namespace mavrin2::dusoro
