#pragma once

#include "platform/files.h"

namespace mavrin2::dusoro {

// A file that takes its name only when it is complete: until then it lies under a name of its own
// beside the target, so that whatever goes wrong leaves an older file of that name alone. Dropped
// by the destructor unless committed.
class OutputFile final : public platform::File {
public:
    // Null when no file of this name can be made: the folder is missing or takes no file, or
    // something other than a writable plain file has the name. A symbolic link is followed; an
    // older file passes its permissions on.
    static std::unique_ptr<OutputFile> Create(const std::filesystem::path& path);

    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile() override;

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override;
    bool Write(std::int64_t offset, std::span<const std::byte> source) override;
    std::optional<std::int64_t> Length() override;

    // Gives the file its name. False, and the file is gone, when that failed or any Write had.
    bool Commit();

private:
    OutputFile(int descriptor, std::filesystem::path temporary, std::filesystem::path target)
        : descriptor_(descriptor), temporary_(std::move(temporary)), target_(std::move(target)) {}
    bool Close();

    int descriptor_;
    std::filesystem::path temporary_;  // empty once it is there no more
    std::filesystem::path target_;
    bool failed_ = false;
};

}  // namespace mavrin2::dusoro
