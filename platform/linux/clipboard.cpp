#include "platform/linux/clipboard.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/file_copy.h"
#include "platform/linux/file_system.h"
#include "platform/linux/private_folder.h"

namespace mavrin2::platform {
namespace {

// A new file that takes the place of another one when it is complete, and is removed otherwise.
class Replacement {
public:
    Replacement(FileSystem& files, std::filesystem::path replaced)
        : files_(files),
          replaced_(std::move(replaced)),
          path_(files.CreateUniqueFile(replaced_.parent_path(), "mavrin2-clipboard-")) {}
    ~Replacement() {
        if (!path_.empty()) files_.Remove(path_);
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    // Null if the folder takes no file.
    std::unique_ptr<File> Open() { return path_.empty() ? nullptr : files_.OpenForUpdate(path_); }

    bool Commit() {
        if (std::rename(path_.c_str(), replaced_.c_str()) != 0) return false;
        path_.clear();
        return true;
    }

private:
    FileSystem& files_;
    std::filesystem::path replaced_;
    std::filesystem::path path_;
};

class FileClipboard final : public SoundClipboard {
public:
    explicit FileClipboard(std::vector<std::filesystem::path> places)
        : places_(std::move(places)) {}

    PutOutcome Put(File& file) override {
        if (file.Length().value_or(0) == 0) return PutOutcome::NotRead;
        for (const auto& place : places_) {
            const PutOutcome outcome = PutInto(place, file);
            if (outcome == PutOutcome::Unavailable) continue;
            if (outcome == PutOutcome::Done) RemoveAllBut(place);
            return outcome;
        }
        return PutOutcome::Unavailable;
    }

    std::unique_ptr<File> Open() override {
        for (const auto& place : places_)
            if (auto sound = files_->OpenForReading(place)) return sound;
        return nullptr;
    }

private:
    PutOutcome PutInto(const std::filesystem::path& place, File& file) {
        Replacement replacement(*files_, place);
        const auto target = replacement.Open();
        if (!target) return PutOutcome::Unavailable;
        const CopyOutcome copied = CopyWholeFile(file, *target);
        if (copied == CopyOutcome::ReadFailed) return PutOutcome::NotRead;
        const bool replaced = copied == CopyOutcome::Done && replacement.Commit();
        return replaced ? PutOutcome::Done : PutOutcome::Unavailable;
    }

    void RemoveAllBut(const std::filesystem::path& kept) {
        for (const auto& place : places_)
            if (place != kept) files_->Remove(place);
    }

    std::shared_ptr<FileSystem> files_ = LinuxFileSystem();
    std::vector<std::filesystem::path> places_;
};

std::filesystem::path RuntimeFolder() {
    if (const char* const named = ::secure_getenv("XDG_RUNTIME_DIR");
        named && named[0] == '/' && IsPrivateFolder(named))
        return named;
    const auto usual = std::filesystem::path("/run/user") / std::to_string(::geteuid());
    return IsPrivateFolder(usual) ? usual : std::filesystem::path();
}

}  // namespace

std::vector<std::filesystem::path> ClipboardFiles() {
    std::vector<std::filesystem::path> files;
    if (const auto runtime = RuntimeFolder(); !runtime.empty())
        files.push_back(runtime / "mavrin2-clipboard.wav");
    if (const auto folder = PrivateFolderIn("/tmp"); !folder.empty())
        files.push_back(folder / "clipboard.wav");
    return files;
}

std::shared_ptr<SoundClipboard> LinuxClipboard(std::vector<std::filesystem::path> files) {
    return std::make_shared<FileClipboard>(std::move(files));
}

}  // namespace mavrin2::platform
