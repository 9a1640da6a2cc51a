#include "platform/replacement_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <future>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/base/file.h"
#include "platform/linux/base/file_attributes.h"
#include "platform/linux/base/last_error.h"
#include "platform/linux/base/output_target.h"
#include "platform/linux/base/unfinished.h"

namespace mavrin2::platform {
namespace {

namespace fs = std::filesystem;

std::error_code Sync(int descriptor) {
    return ::fsync(descriptor) == 0 ? std::error_code() : LastError();
}

// After this a name that was given or changed in the folder survives a loss of power. What has
// happened can no longer be reported as a failure, refused memory included.
void SyncFolder(const fs::path& file) noexcept {
    try {
        const fs::path folder = file.parent_path();
        const Descriptor opened(
            ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (opened) Sync(opened.Get());
    } catch (const std::bad_alloc&) {
    }
}

std::error_code Rename(const fs::path& from, const fs::path& to) {
    return ::rename(from.c_str(), to.c_str()) == 0 ? std::error_code() : LastError();
}

std::error_code CopyContent(LinuxFile& source, LinuxFile& target, std::int64_t length) {
    constexpr std::size_t blockSize = std::size_t{1} << 20;
    std::vector<std::byte> block(blockSize);
    for (std::int64_t at = 0; at < length;) {
        const auto read = source.Read(at, block);
        if (!read) return LastError();
        if (*read == 0 || !target.Write(at, std::span(block).first(*read)))
            return *read == 0 ? std::make_error_code(std::errc::io_error) : LastError();
        at += static_cast<std::int64_t>(*read);
    }
    return {};
}

Descriptor Duplicate(const Descriptor& descriptor) {
    return Descriptor(::fcntl(descriptor.Get(), F_DUPFD_CLOEXEC, 0));
}

// What a complete file goes through to take the name `target`. The file has no other name left
// afterwards, or the one that is to be removed.
class NameTaking {
public:
    NameTaking(UnfinishedFile& file, const fs::path& target) : file_(file), target_(target) {}

    std::error_code Run() {
        struct stat old = {};
        const bool replaces = ::lstat(target_.c_str(), &old) == 0;
        const bool alike = !replaces || CopyAttributes(target_, file_.File.Get());
        if (const auto error = Sync(file_.File.Get())) return error;
        if (replaces && (!alike || old.st_nlink > 1)) return Overwrite();
        const auto error = Move();
        if (!error) SyncFolder(target_);
        return error;
    }

private:
    std::error_code Move() {
        if (file_.Name.empty()) {
            // Only a name that is free can be given at once.
            if (!LinkFile(file_.File.Get(), target_)) return {};
            if (const auto error = NameUnfinishedFile(file_, target_.parent_path())) return error;
        }
        const auto error = Rename(file_.Name, target_);
        if (!error) file_.Name.clear();
        return error;
    }

    // Room is made first, so that a full disk is noticed while the old content is still there.
    std::error_code Overwrite() {
        Descriptor opened(::open(target_.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC));
        if (!opened) return LastError();
        const int descriptor = opened.Get();
        LinuxFile target(std::move(opened));
        LinuxFile content(Duplicate(file_.File));
        const auto length = content.Length();
        const auto oldLength = target.Length();
        if (!length || !oldLength) return LastError();
        if (*length > *oldLength) {
            const int full = ::posix_fallocate(descriptor, *oldLength, *length - *oldLength);
            if (full != 0) {
                [[maybe_unused]] const int cut = ::ftruncate(descriptor, *oldLength);
                return {full, std::generic_category()};
            }
        }
        if (const auto error = MoveBeside()) return error;
        const fs::path beside = std::exchange(file_.Name, {});
        if (const auto error = CopyContent(content, target, *length)) return error;
        if (::ftruncate(descriptor, *length) != 0) return LastError();
        if (const auto error = Sync(descriptor)) return error;
        ::unlink(beside.c_str());
        return {};
    }

    // To a name that does not count as abandoned.
    std::error_code MoveBeside() {
        fs::path beside = target_;
        beside += ".new-" + RandomDigits(8);
        const auto error =
            file_.Name.empty() ? LinkFile(file_.File.Get(), beside) : Rename(file_.Name, beside);
        if (error) return error;
        file_.Name = std::move(beside);  // which needs no memory
        SyncFolder(file_.Name);
        return {};
    }

    UnfinishedFile& file_;
    const fs::path& target_;
};

class LinuxReplacement final : public ReplacementFile {
public:
    LinuxReplacement(UnfinishedFile unfinished, fs::path target)
        : unfinished_(std::move(unfinished)),
          target_(std::move(target)),
          file_(Duplicate(unfinished_.File)) {}
    LinuxReplacement(const LinuxReplacement&) = delete;
    LinuxReplacement& operator=(const LinuxReplacement&) = delete;
    ~LinuxReplacement() override {
        if (!unfinished_.Name.empty()) ::unlink(unfinished_.Name.c_str());
    }

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override {
        return file_.Read(offset, target);
    }

    bool Write(std::int64_t offset, std::span<const std::byte> source) override {
        if (failure_) return false;
        errno = EIO;  // where nothing was written and no reason was given
        if (!file_.Write(offset, source)) failure_ = LastError();
        if (!failure_) BeginSync(offset, static_cast<std::int64_t>(source.size()));
        return !failure_;
    }

    std::optional<std::int64_t> Length() override { return file_.Length(); }

    std::error_code Commit() override {
        const auto error = failure_ ? failure_ : NameTaking(unfinished_, target_).Run();
        failure_ = std::make_error_code(std::errc::bad_file_descriptor);
        return error;
    }

private:
    // The disk writes while more is made, so that there is little left for Commit to wait for. What
    // is written once and in order begins in large stretches; the rest is left to Commit. Preparing
    // the writes takes the system a third of the time of a copy, so another thread waits for that.
    void BeginSync(std::int64_t offset, std::int64_t count) {
        constexpr std::int64_t stretch = std::int64_t{8} << 20;
        if (offset != written_) return;
        written_ += count;
        if (written_ - begun_ < stretch || IsBeginning()) return;
        const auto begin = [file = unfinished_.File.Get(), from = begun_,
                            bytes = written_ - begun_] {
            ::sync_file_range(file, from, bytes, SYNC_FILE_RANGE_WRITE);
        };
        begun_ = written_;
        try {
            beginning_ = std::async(std::launch::async, begin);
        } catch (const std::exception&) {
            begin();  // no thread or no memory
        }
    }

    bool IsBeginning() const {
        return beginning_.valid() &&
               beginning_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
    }

    UnfinishedFile unfinished_;
    fs::path target_;
    LinuxFile file_;
    std::int64_t written_ = 0;  // bytes from the start, in order
    std::int64_t begun_ = 0;
    std::future<void> beginning_;  // waits for the thread before the file is closed
    std::error_code failure_;
};

class LinuxStaged final : public StagedFile {
public:
    LinuxStaged(UnfinishedFolder folder, fs::path target)
        : folder_(std::move(folder)),
          target_(std::move(target)),
          path_(folder_.Name / target_.filename()) {}
    LinuxStaged(const LinuxStaged&) = delete;
    LinuxStaged& operator=(const LinuxStaged&) = delete;
    ~LinuxStaged() override {
        std::error_code ignored;
        fs::remove_all(folder_.Name, ignored);
    }

    const fs::path& Path() const override { return path_; }

    std::error_code Commit() override {
        UnfinishedFile file{Descriptor(::open(path_.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC)),
                            path_};
        return file.File ? NameTaking(file, target_).Run() : LastError();
    }

private:
    UnfinishedFolder folder_;
    fs::path target_;
    fs::path path_;
};

class LinuxReplacements final : public ReplacementFiles {
public:
    std::unique_ptr<ReplacementFile> Create(const fs::path& path, std::error_code& error) override {
        const fs::path target = OutputTarget(path, error);
        if (error) return nullptr;
        RemoveAbandoned(target.parent_path());
        auto file = CreateUnfinishedFile(target.parent_path(), error);
        if (error) return nullptr;
        return std::make_unique<LinuxReplacement>(std::move(file), target);
    }

    std::unique_ptr<StagedFile> Stage(const fs::path& path, std::error_code& error) override {
        const fs::path target = OutputTarget(path, error);
        if (error) return nullptr;
        RemoveAbandoned(target.parent_path());
        auto folder = CreateUnfinishedFolder(target.parent_path(), error);
        if (error) return nullptr;
        return std::make_unique<LinuxStaged>(std::move(folder), target);
    }
};

}  // namespace

std::shared_ptr<ReplacementFiles> SystemReplacementFiles() {
    return std::make_shared<LinuxReplacements>();
}

}  // namespace mavrin2::platform
