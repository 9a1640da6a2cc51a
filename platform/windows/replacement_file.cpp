#include "platform/replacement_file.h"

#include <optional>
#include <random>
#include <string>

#include "platform/windows/file.h"
#include "platform/windows/last_error.h"

namespace mavrin2::platform {
namespace {

namespace fs = std::filesystem;

constexpr int kMostTries = 100;
constexpr std::wstring_view kPrefix = L".mavrin2-";
constexpr std::wstring_view kSuffix = L".tmp";
constexpr std::size_t kDigits = 16;

fs::path NewName(const fs::path& folder) {
    std::random_device random;
    std::wstring name(kPrefix);
    for (std::size_t i = 0; i < kDigits; ++i)
        name += L"0123456789abcdef"[random() % 16];
    return folder / name.append(kSuffix);
}

// While this is set the file vanishes with its last handle, also that of a process that dies.
bool SetVanishing(const Handle& file, bool vanishing) {
    FILE_DISPOSITION_INFO disposition = {};
    disposition.DeleteFile = vanishing;
    return ::SetFileInformationByHandle(file.Get(), FileDispositionInfo, &disposition,
                                        sizeof disposition);
}

bool IsFile(const fs::path& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Links are followed, also one that leads to no file.
fs::path OutputTarget(const fs::path& path, std::error_code& error) {
    // A whole name in the system's own spelling: replacing a file under another one is refused
    // while it is open for reading.
    fs::path target = path.empty() ? path : fs::absolute(path, error);
    for (int i = 0; i < 40 && !error && fs::is_symlink(fs::symlink_status(target, error)); ++i)
        target = target.parent_path() / fs::read_symlink(target, error);
    error.clear();
    if (!target.has_filename()) error = std::make_error_code(std::errc::no_such_file_or_directory);
    const DWORD attributes = error ? INVALID_FILE_ATTRIBUTES : ::GetFileAttributesW(target.c_str());
    if (error || attributes == INVALID_FILE_ATTRIBUTES) return target;
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        error = std::make_error_code(std::errc::is_a_directory);
        return target;
    }
    const Handle old(::CreateFileW(target.c_str(), GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
    if (!old)
        error = LastError();
    else if (::GetFileType(old.Get()) != FILE_TYPE_DISK)
        error = std::make_error_code(std::errc::invalid_argument);
    return target;
}

// The complete and closed file takes the name; what has it passes on its attributes.
std::error_code TakeName(const fs::path& file, const fs::path& target) {
    if (IsFile(target) && ::ReplaceFileW(target.c_str(), file.c_str(), nullptr,
                                         REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr))
        return {};
    return ::MoveFileExW(file.c_str(), target.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
               ? std::error_code()
               : LastError();
}

class WindowsReplacement final : public ReplacementFile {
public:
    WindowsReplacement(Handle file, fs::path name, fs::path target)
        : named_(!SetVanishing(file, true)),
          file_(std::make_unique<WindowsFile>(std::move(file))),
          name_(std::move(name)),
          target_(std::move(target)) {}
    WindowsReplacement(const WindowsReplacement&) = delete;
    WindowsReplacement& operator=(const WindowsReplacement&) = delete;
    ~WindowsReplacement() override {
        file_.reset();
        if (named_) ::DeleteFileW(name_.c_str());
    }

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override {
        return file_ ? file_->Read(offset, target) : std::nullopt;
    }
    bool Write(std::int64_t offset, std::span<const std::byte> source) override {
        if (!failure_ && !file_->Write(offset, source)) failure_ = LastError();
        return !failure_;
    }
    std::optional<std::int64_t> Length() override { return file_ ? file_->Length() : std::nullopt; }

    std::error_code Commit() override {
        if (failure_) return failure_;
        failure_ = std::make_error_code(std::errc::bad_file_descriptor);
        if (!::FlushFileBuffers(file_->Native().Get()) ||
            (!named_ && !SetVanishing(file_->Native(), false)))
            return LastError();
        named_ = true;
        file_.reset();
        const auto error = TakeName(name_, target_);
        named_ = static_cast<bool>(error);
        return error;
    }

private:
    bool named_;  // whether the file stays when it is closed
    std::unique_ptr<WindowsFile> file_;
    fs::path name_;
    fs::path target_;
    std::error_code failure_;
};

// A folder that others cannot remove while this handle is open.
Handle OpenFolder(const fs::path& path, DWORD sharing) {
    return Handle(
        ::CreateFileW(path.c_str(), DELETE | FILE_LIST_DIRECTORY, sharing, nullptr, OPEN_EXISTING,
                      FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

class WindowsStaged final : public StagedFile {
public:
    WindowsStaged(Handle folder, const fs::path& name, fs::path target)
        : folder_(std::move(folder)),
          name_(name),
          target_(std::move(target)),
          path_(name / target_.filename()) {}
    WindowsStaged(const WindowsStaged&) = delete;
    WindowsStaged& operator=(const WindowsStaged&) = delete;
    ~WindowsStaged() override {
        folder_.Close();
        std::error_code ignored;
        fs::remove_all(name_, ignored);
    }

    const fs::path& Path() const override { return path_; }

    std::error_code Commit() override {
        {
            const Handle file(::CreateFileW(path_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                            OPEN_EXISTING, 0, nullptr));
            if (!file || !::FlushFileBuffers(file.Get())) return LastError();
        }
        return TakeName(path_, target_);
    }

private:
    Handle folder_;
    fs::path name_;
    fs::path target_;
    fs::path path_;
};

// Folders of processes that have died; files of theirs have vanished.
void RemoveAbandoned(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end;
         !error && entry != end; entry.increment(error)) {
        const std::wstring name = entry->path().filename();
        if (name.size() != kPrefix.size() + kDigits + kSuffix.size() ||
            !name.starts_with(kPrefix) || !name.ends_with(kSuffix))
            continue;
        std::error_code ignored;
        if (OpenFolder(entry->path(), 0)) fs::remove_all(entry->path(), ignored);
    }
}

class WindowsReplacements final : public ReplacementFiles {
public:
    std::unique_ptr<ReplacementFile> Create(const fs::path& path, std::error_code& error) override {
        const fs::path target = OutputTarget(path, error);
        if (error) return nullptr;
        RemoveAbandoned(target.parent_path());
        for (int i = 0; i < kMostTries; ++i) {
            const fs::path name = NewName(target.parent_path());
            Handle file(::CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                      FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
            if (file) {
                error.clear();
                return std::make_unique<WindowsReplacement>(std::move(file), name, target);
            }
            error = LastError();
            if (error.value() != ERROR_FILE_EXISTS) break;
        }
        return nullptr;
    }

    std::unique_ptr<StagedFile> Stage(const fs::path& path, std::error_code& error) override {
        const fs::path target = OutputTarget(path, error);
        if (error) return nullptr;
        RemoveAbandoned(target.parent_path());
        const fs::path name = NewName(target.parent_path());
        Handle folder;
        if (::CreateDirectoryW(name.c_str(), nullptr))
            folder = OpenFolder(name, FILE_SHARE_READ | FILE_SHARE_WRITE);
        if (folder) return std::make_unique<WindowsStaged>(std::move(folder), name, target);
        error = LastError();
        return nullptr;
    }
};

}  // namespace

std::shared_ptr<ReplacementFiles> SystemReplacementFiles() {
    return std::make_shared<WindowsReplacements>();
}

}  // namespace mavrin2::platform
