#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/replacement_file.h"

namespace mavrin2::script {

// The file that a command writes. It takes its name, and the place of an older file, only when it
// is complete; what is not committed is removed. Everything throws Failure.
class OutputFile {
public:
    explicit OutputFile(const std::filesystem::path& target);
    // Standard output. `extension` is the one that Path() has: ".wav".
    static OutputFile OnStandardOutput(const std::string& extension);

    // Where to write: a file of that name in a private folder; initially missing.
    const std::filesystem::path& Path() const { return staged_->Path(); }

    // An older file at the target is untouched if this fails. Standard output may have a part then.
    // Throws Interruption too.
    void Commit();

private:
    OutputFile(std::string name, const std::filesystem::path& target);
    void CopyToStandardOutput() const;

    std::string name_;  // as messages call it
    bool standardOutput_ = false;
    std::unique_ptr<platform::StagedFile> staged_;
};

}  // namespace mavrin2::script
