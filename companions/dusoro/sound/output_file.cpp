#include "companions/dusoro/sound/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <random>
#include <utility>

namespace mavrin2::dusoro {
namespace {

namespace fs = std::filesystem;

// Where a chain of symbolic links ends, whether or not a file is there; empty for an endless one.
fs::path FollowLinks(fs::path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int i = 0; i < kMostLinks; ++i) {
        if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
        const fs::path link = fs::read_symlink(path, error);
        if (error) return {};
        path = path.parent_path() / link;  // an absolute link replaces all
    }
    return {};
}

// A new file beside `target`, with the permissions that any new file gets; -1 when there is none.
int CreateBeside(const fs::path& target, fs::path& name) {
    constexpr int kMostTries = 100;
    std::random_device random;
    for (int i = 0; i < kMostTries; ++i) {
        std::array<char, 40> leaf{};
        std::snprintf(leaf.data(), leaf.size(), ".mavrin2-%08x%08x.tmp", random(), random());
        name = target.parent_path() / leaf.data();
        const int descriptor =
            open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (descriptor >= 0 || errno != EEXIST) return descriptor;
    }
    return -1;
}

}  // namespace

std::unique_ptr<OutputFile> OutputFile::Create(const fs::path& path) {
    fs::path target = FollowLinks(path);
    if (!target.has_filename()) return nullptr;

    struct stat older {};
    const bool replaces = stat(target.c_str(), &older) == 0;
    if (!replaces && errno != ENOENT) return nullptr;  // a name that is too long, for one
    if (replaces &&
        (!S_ISREG(older.st_mode) || faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0))
        return nullptr;

    fs::path temporary;
    const int descriptor = CreateBeside(target, temporary);
    if (descriptor < 0) return nullptr;
    std::unique_ptr<OutputFile> file(
        new OutputFile(descriptor, std::move(temporary), std::move(target)));
    if (replaces && fchmod(descriptor, older.st_mode & 0777) != 0) return nullptr;
    return file;
}

OutputFile::~OutputFile() {
    Close();
    if (!temporary_.empty()) unlink(temporary_.c_str());
}

std::optional<std::size_t> OutputFile::Read(std::int64_t offset, std::span<std::byte> target) {
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

bool OutputFile::Write(std::int64_t offset, std::span<const std::byte> source) {
    while (!failed_ && !source.empty()) {
        const ssize_t put = pwrite(descriptor_, source.data(), source.size(), offset);
        if (put < 0 && errno == EINTR) continue;
        failed_ = put <= 0;
        if (failed_) break;
        source = source.subspan(static_cast<std::size_t>(put));
        offset += put;
    }
    return !failed_;
}

std::optional<std::int64_t> OutputFile::Length() {
    struct stat status {};
    if (fstat(descriptor_, &status) != 0) return std::nullopt;
    return status.st_size;
}

// Some file systems tell only now that something was not written.
bool OutputFile::Close() {
    const int descriptor = std::exchange(descriptor_, -1);
    return descriptor < 0 || close(descriptor) == 0;
}

bool OutputFile::Commit() {
    const bool closed = Close();
    if (failed_ || !closed || rename(temporary_.c_str(), target_.c_str()) != 0) return false;
    temporary_.clear();
    return true;
}

}  // namespace mavrin2::dusoro
