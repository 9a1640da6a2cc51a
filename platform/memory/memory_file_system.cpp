#include "platform/memory/memory_file_system.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace mavrin2::platform {
namespace {

// As it is looked up: absolute, without a slash at the end.
std::filesystem::path Normal(const std::filesystem::path& path) {
    auto normal = ("/" / path).lexically_normal();
    return normal.has_filename() ? normal : normal.parent_path();
}

bool IsSameOrBelow(const std::filesystem::path& path, const std::filesystem::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
           folder.end();
}

bool IsSameOrBelowAny(const std::filesystem::path& path,
                      const std::set<std::filesystem::path>& folders) {
    return std::any_of(folders.begin(), folders.end(),
                       [&path](const auto& folder) { return IsSameOrBelow(path, folder); });
}

}  // namespace

// What the open files share with their file system, and keep when it is gone.
struct MemoryFileSystem::Controls {
    struct Plan {
        int Calls = 0;
        int FailingCall = 0;  // 0: none
        int FailingFrom = 0;
    };
    std::map<Operation, Plan> Plans;
    std::optional<std::int64_t> FreeSpace;
    int OpenFiles = 0;

    // Counts a call; false when it is one that has to fail.
    bool Begin(Operation operation) {
        Plan& plan = Plans[operation];
        ++plan.Calls;
        return plan.Calls != plan.FailingCall &&
               (plan.FailingFrom == 0 || plan.Calls < plan.FailingFrom);
    }
};

class MemoryFileSystem::OpenFile final : public File {
public:
    OpenFile(std::shared_ptr<Controls> controls, std::shared_ptr<Content> content, bool writable)
        : controls_(std::move(controls)), content_(std::move(content)), writable_(writable) {
        ++controls_->OpenFiles;
    }
    ~OpenFile() override { --controls_->OpenFiles; }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override {
        if (!controls_->Begin(Operation::Read) || offset < 0) return std::nullopt;
        const auto start = static_cast<std::size_t>(offset);
        if (start >= content_->size()) return 0;
        const std::size_t count = std::min(target.size(), content_->size() - start);
        if (count != 0) std::memcpy(target.data(), content_->data() + start, count);
        return count;
    }

    bool Write(std::int64_t offset, std::span<const std::byte> source) override {
        if (!controls_->Begin(Operation::Write) || !writable_ || offset < 0) return false;
        return Put(offset, source);
    }

    std::optional<std::int64_t> Length() override {
        if (!controls_->Begin(Operation::Length)) return std::nullopt;
        return static_cast<std::int64_t>(content_->size());
    }

    bool Truncate(std::int64_t length) override {
        if (!writable_ || length < 0) return false;
        content_->resize(std::min(content_->size(), static_cast<std::size_t>(length)));
        return true;
    }

private:
    bool Put(std::int64_t offset, std::span<const std::byte> source) {
        if (source.empty()) return true;
        const auto size = static_cast<std::int64_t>(content_->size());
        std::int64_t end = offset + static_cast<std::int64_t>(source.size());
        bool fits = true;
        if (controls_->FreeSpace && end > size) {
            const std::int64_t growth = std::min(end - size, *controls_->FreeSpace);
            *controls_->FreeSpace -= growth;
            fits = size + growth == end;
            end = size + growth;
        }
        if (end > size) content_->resize(static_cast<std::size_t>(end));
        if (end > offset) {
            std::copy_n(source.begin(), end - offset, content_->begin() + offset);
        }
        return fits;
    }

    std::shared_ptr<Controls> controls_;
    std::shared_ptr<Content> content_;
    bool writable_;
};

MemoryFileSystem::MemoryFileSystem() : controls_(std::make_shared<Controls>()) {
    folders_.insert("/");
    SetTemporaryFolder("/tmp/private");
}

MemoryFileSystem::~MemoryFileSystem() = default;

void MemoryFileSystem::AddFolder(const std::filesystem::path& path) {
    for (auto folder = Normal(path); folders_.insert(folder).second;) {
        folder = folder.parent_path();
    }
}

void MemoryFileSystem::AddFile(const std::filesystem::path& path,
                               std::span<const std::byte> bytes) {
    const auto normal = Normal(path);
    AddFolder(normal.parent_path());
    files_[normal] = std::make_shared<Content>(bytes.begin(), bytes.end());
}

void MemoryFileSystem::AddFile(const std::filesystem::path& path, std::string_view text) {
    AddFile(path, std::as_bytes(std::span(text)));
}

bool MemoryFileSystem::Exists(const std::filesystem::path& path) const {
    return files_.contains(Normal(path));
}

std::optional<std::vector<std::byte>> MemoryFileSystem::Bytes(
    const std::filesystem::path& path) const {
    const auto found = files_.find(Normal(path));
    if (found == files_.end()) return std::nullopt;
    return *found->second;
}

std::optional<std::string> MemoryFileSystem::Text(const std::filesystem::path& path) const {
    const auto found = files_.find(Normal(path));
    if (found == files_.end()) return std::nullopt;
    std::string text;
    for (const std::byte b : *found->second)
        text += static_cast<char>(b);
    return text;
}

std::vector<std::filesystem::path> MemoryFileSystem::Files() const {
    std::vector<std::filesystem::path> paths;
    for (const auto& [path, content] : files_)
        paths.push_back(path);
    return paths;
}

int MemoryFileSystem::OpenFiles() const {
    return controls_->OpenFiles;
}

void MemoryFileSystem::FailNth(Operation operation, int nth) {
    auto& plan = controls_->Plans[operation];
    plan.FailingCall = plan.Calls + nth;
}

void MemoryFileSystem::FailFrom(Operation operation, int nth) {
    auto& plan = controls_->Plans[operation];
    plan.FailingFrom = plan.Calls + nth;
}

void MemoryFileSystem::FailNothing() {
    for (auto& [operation, plan] : controls_->Plans)
        plan = {plan.Calls, 0, 0};
}

void MemoryFileSystem::Refuse(const std::filesystem::path& path) {
    refused_.insert(Normal(path));
}

void MemoryFileSystem::SetFreeSpace(std::optional<std::int64_t> bytes) {
    controls_->FreeSpace = bytes;
}

void MemoryFileSystem::SetTemporaryFolder(const std::filesystem::path& folder) {
    if (!folder.empty()) AddFolder(folder);
    temporaryFolder_ = folder.empty() ? folder : Normal(folder) / "";
}

void MemoryFileSystem::SetCdDrive(const std::filesystem::path& folder) {
    cdDrives_.insert(Normal(folder));
}

int MemoryFileSystem::Calls(Operation operation) const {
    return controls_->Plans[operation].Calls;
}

std::error_code MemoryFileSystem::Rename(const std::filesystem::path& from,
                                         const std::filesystem::path& to) {
    const auto file = files_.find(Normal(from));
    if (file == files_.end()) return std::make_error_code(std::errc::no_such_file_or_directory);
    const auto target = Normal(to);
    if (!controls_->Begin(Operation::Rename) || IsRefused(target))
        return std::make_error_code(std::errc::permission_denied);
    files_[target] = std::move(file->second);
    files_.erase(file);
    return {};
}

void MemoryFileSystem::Drop(const std::filesystem::path& path) {
    files_.erase(Normal(path));
}

bool MemoryFileSystem::IsRefused(const std::filesystem::path& path) const {
    return IsSameOrBelowAny(path, refused_);
}

std::unique_ptr<File> MemoryFileSystem::Open(const std::filesystem::path& path, bool writable) {
    const auto found = files_.find(Normal(path));
    if (!controls_->Begin(Operation::Open) || found == files_.end() || IsRefused(found->first)) {
        return nullptr;
    }
    return std::make_unique<OpenFile>(controls_, found->second, writable);
}

std::unique_ptr<File> MemoryFileSystem::OpenForReading(const std::filesystem::path& path) {
    return Open(path, false);
}

std::unique_ptr<File> MemoryFileSystem::OpenForUpdate(const std::filesystem::path& path) {
    return Open(path, true);
}

std::unique_ptr<File> MemoryFileSystem::Create(const std::filesystem::path& path) {
    const auto normal = Normal(path);
    if (!controls_->Begin(Operation::Create) || path.empty() || IsRefused(normal) ||
        folders_.contains(normal) || !folders_.contains(normal.parent_path())) {
        return nullptr;
    }
    auto& content = files_[normal];
    // Emptied and not replaced: other open files of it see that.
    if (content == nullptr) content = std::make_shared<Content>();
    content->clear();
    return std::make_unique<OpenFile>(controls_, content, true);
}

std::filesystem::path MemoryFileSystem::CreateUniqueFile(const std::filesystem::path& folder,
                                                         std::string_view prefix) {
    const auto normal = Normal(folder);
    if (!controls_->Begin(Operation::Create) || folder.empty() || IsRefused(normal) ||
        !folders_.contains(normal)) {
        return {};
    }
    for (;;) {
        char digits[9];
        std::snprintf(digits, sizeof(digits), "%08x", nextUnique_++);
        const std::string name = std::string(prefix) + digits + ".tmp";
        if (files_.try_emplace(normal / name, std::make_shared<Content>()).second) {
            return folder / name;
        }
    }
}

bool MemoryFileSystem::Remove(const std::filesystem::path& path) {
    const auto normal = Normal(path);
    if (!controls_->Begin(Operation::Remove) || IsRefused(normal)) return false;
    return files_.erase(normal) != 0;
}

bool MemoryFileSystem::IsFolder(const std::filesystem::path& path) {
    return !path.empty() && folders_.contains(Normal(path));
}

std::vector<std::filesystem::path> MemoryFileSystem::List(const std::filesystem::path& folder,
                                                          std::string_view prefix,
                                                          std::string_view suffix) {
    std::vector<std::filesystem::path> found;
    const auto normal = Normal(folder);
    for (const auto& [path, content] : files_) {
        const std::string name = path.filename().string();
        if (path.parent_path() == normal && name.size() >= prefix.size() + suffix.size() &&
            name.starts_with(prefix) && name.ends_with(suffix)) {
            found.push_back(folder / name);
        }
    }
    return found;
}

std::filesystem::path MemoryFileSystem::UsableFolder(const std::filesystem::path& folder) {
    const auto normal = Normal(folder);
    if (folder.empty() || !folders_.contains(normal) || IsRefused(normal)) return {};
    return normal / "";
}

std::filesystem::path MemoryFileSystem::TemporaryFolder() {
    return temporaryFolder_;
}

bool MemoryFileSystem::IsOnCdDrive(const std::filesystem::path& path) {
    return IsSameOrBelowAny(Normal(path), cdDrives_);
}

}  // namespace mavrin2::platform
