#pragma once

#include <filesystem>

namespace mavrin2::script {

// A file that takes the place of another one only when it is complete. Until then it lies beside
// it under a name of its own, with the same extension; it is removed unless it is committed.
class OutputFile {
public:
    // Throws Failure when `target` is no place for a file.
    explicit OutputFile(const std::filesystem::path& target);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    // Where to write; an empty file at first.
    const std::filesystem::path& Path() const { return path_; }

    // Throws Failure; an older file at the target is untouched then.
    void Commit();

private:
    std::filesystem::path given_;   // as the user wrote it
    std::filesystem::path target_;  // what it stands for
    std::filesystem::path path_;
    bool committed_ = false;
};

}  // namespace mavrin2::script
