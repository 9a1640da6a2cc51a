#include "control/editor/temporary_files.h"

#include "automation/text.h"

namespace mavrin2::editor {
namespace {

constexpr const char* kPrefix = "nct";
constexpr const char* kSuffix = ".tmp";

}  // namespace

TemporaryFiles::TemporaryFiles(const platform::Ports& ports, EditSettings& settings)
    : files_(ports.Files), lock_(ports.NewInstanceLock()), settings_(settings) {
    settings_.TempDirectory = files_->TemporaryFolder();
    // Without a folder there is no name either: a bare one would mean the current folder.
    if (!settings_.TempDirectory.empty())
        settings_.TempFileName = settings_.TempDirectory / "KovClipBoard.wav";
}

std::filesystem::path TemporaryFiles::MakeTempFileName() {
    return files_->CreateUniqueFile(settings_.TempDirectory, kPrefix);
}

void TemporaryFiles::Remove(const std::filesystem::path& path) {
    if (!path.empty()) files_->Remove(path);
}

void TemporaryFiles::CleanTempFiles() {
    const auto sole = lock_->TryBecomeSole();
    if (!sole) return;
    for (const std::filesystem::path& path :
         files_->List(settings_.TempDirectory, kPrefix, kSuffix))
        files_->Remove(path);
}

bool TemporaryFiles::ChooseFolder(const std::filesystem::path& path) {
    const std::filesystem::path folder = path.parent_path();
    if (folder.empty()) return false;
    std::filesystem::path usable = files_->UsableFolder(folder);
    if (usable.empty()) return false;
    settings_.TempDirectory = std::move(usable);
    return true;
}

void TemporaryFiles::ChooseClipFile(const std::filesystem::path& path) {
    const std::string name = path.string();
    const std::size_t point = name.rfind('.');
    if (point != std::string::npos && automation::AsciiLower(name.substr(point + 1)) == "wav")
        settings_.TempFileName = path;
}

}  // namespace mavrin2::editor
