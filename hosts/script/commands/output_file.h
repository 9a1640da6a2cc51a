#pragma once

#include <filesystem>
#include <memory>

#include "platform/replacement_file.h"

namespace mavrin2::script {

// The file that a command writes. It takes its name, and the place of an older file, only when it
// is complete; what is not committed is removed. Everything throws Failure.
class OutputFile {
public:
    explicit OutputFile(const std::filesystem::path& target);

    // Where to write: a file of that name in a private folder; initially missing.
    const std::filesystem::path& Path() const { return staged_->Path(); }

    // An older file at the target is untouched if this fails.
    void Commit();

private:
    std::filesystem::path target_;
    std::unique_ptr<platform::StagedFile> staged_;
};

}  // namespace mavrin2::script
