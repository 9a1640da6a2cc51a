#include "platform/memory/memory_replacement_files.h"

#include <utility>

namespace mavrin2::platform {
namespace {

namespace fs = std::filesystem;

// Unfinished files are in a folder that tests do not look into.
const fs::path kUnfinished = "/unfinished";

std::error_code TargetError(MemoryFileSystem& files, const fs::path& target) {
    if (!target.has_filename()) return std::make_error_code(std::errc::no_such_file_or_directory);
    if (files.IsFolder(target)) return std::make_error_code(std::errc::is_a_directory);
    const fs::path folder = target.parent_path();
    if (!files.IsFolder(folder))
        return std::make_error_code(files.Exists(folder) ? std::errc::not_a_directory
                                                         : std::errc::no_such_file_or_directory);
    return files.IsRefused(target) ? std::make_error_code(std::errc::permission_denied)
                                   : std::error_code();
}

class MemoryReplacement final : public ReplacementFile {
public:
    MemoryReplacement(std::shared_ptr<MemoryFileSystem> files, fs::path target, fs::path unfinished,
                      std::unique_ptr<File> file)
        : files_(std::move(files)),
          target_(std::move(target)),
          unfinished_(std::move(unfinished)),
          file_(std::move(file)) {}
    MemoryReplacement(const MemoryReplacement&) = delete;
    MemoryReplacement& operator=(const MemoryReplacement&) = delete;
    ~MemoryReplacement() override { files_->Drop(unfinished_); }

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override {
        return file_->Read(offset, target);
    }
    bool Write(std::int64_t offset, std::span<const std::byte> source) override {
        if (!failure_ && !file_->Write(offset, source))
            failure_ = std::make_error_code(std::errc::no_space_on_device);
        return !failure_;
    }
    std::optional<std::int64_t> Length() override { return file_->Length(); }

    std::error_code Commit() override {
        const auto error = failure_ ? failure_ : files_->Rename(unfinished_, target_);
        failure_ = std::make_error_code(std::errc::bad_file_descriptor);
        return error;
    }

private:
    std::shared_ptr<MemoryFileSystem> files_;
    fs::path target_;
    fs::path unfinished_;
    std::unique_ptr<File> file_;
    std::error_code failure_;
};

class MemoryStaged final : public StagedFile {
public:
    MemoryStaged(std::shared_ptr<MemoryFileSystem> files, fs::path target, fs::path path)
        : files_(std::move(files)), target_(std::move(target)), path_(std::move(path)) {}
    MemoryStaged(const MemoryStaged&) = delete;
    MemoryStaged& operator=(const MemoryStaged&) = delete;
    ~MemoryStaged() override { files_->Drop(path_); }

    const fs::path& Path() const override { return path_; }
    std::error_code Commit() override { return files_->Rename(path_, target_); }

private:
    std::shared_ptr<MemoryFileSystem> files_;
    fs::path target_;
    fs::path path_;
};

}  // namespace

std::unique_ptr<ReplacementFile> MemoryReplacementFiles::Create(const fs::path& target,
                                                                std::error_code& error) {
    error = TargetError(*files_, target);
    if (error) return nullptr;
    files_->AddFolder(kUnfinished);
    fs::path unfinished = files_->CreateUniqueFile(kUnfinished, "file");
    auto file = unfinished.empty() ? nullptr : files_->OpenForUpdate(unfinished);
    if (file)
        return std::make_unique<MemoryReplacement>(files_, target, unfinished, std::move(file));
    files_->Drop(unfinished);
    error = std::make_error_code(std::errc::permission_denied);
    return nullptr;
}

std::unique_ptr<StagedFile> MemoryReplacementFiles::Stage(const fs::path& target,
                                                          std::error_code& error) {
    error = TargetError(*files_, target);
    if (error) return nullptr;
    const fs::path folder = kUnfinished / std::to_string(nextFolder_++);
    files_->AddFolder(folder);
    return std::make_unique<MemoryStaged>(files_, target, folder / target.filename());
}

}  // namespace mavrin2::platform
