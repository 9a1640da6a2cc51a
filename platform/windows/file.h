#pragma once

#include "platform/files.h"
#include "platform/windows/handle.h"

namespace mavrin2::platform {

class WindowsFile final : public File {
public:
    explicit WindowsFile(Handle handle) : handle_(std::move(handle)) {}

    // The file of a handle; nothing for an invalid handle or one of no plain file.
    static std::unique_ptr<File> Of(Handle handle);

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override;
    bool Write(std::int64_t offset, std::span<const std::byte> source) override;
    std::optional<std::int64_t> Length() override;
    bool Truncate(std::int64_t length) override;

    const Handle& Native() const { return handle_; }

private:
    Handle handle_;
};

}  // namespace mavrin2::platform
