#pragma once

#include <memory>

#include "platform/memory/memory_file_system.h"
#include "platform/replacement_file.h"

namespace mavrin2::platform {

// Replacements of files in memory. They share the room and the failures of their file system:
// `Create` and `Write` as there, `Commit` where a name is taken.
class MemoryReplacementFiles final : public ReplacementFiles {
public:
    explicit MemoryReplacementFiles(std::shared_ptr<MemoryFileSystem> files)
        : files_(std::move(files)) {}

    std::unique_ptr<ReplacementFile> Create(const std::filesystem::path& target,
                                            std::error_code& error) override;
    std::unique_ptr<StagedFile> Stage(const std::filesystem::path& target,
                                      std::error_code& error) override;

private:
    std::shared_ptr<MemoryFileSystem> files_;
    int nextFolder_ = 0;
};

}  // namespace mavrin2::platform
