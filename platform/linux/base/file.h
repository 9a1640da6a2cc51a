#pragma once

#include "platform/files.h"
#include "platform/linux/base/descriptor.h"

namespace mavrin2::platform {

class LinuxFile final : public File {
public:
    // What `descriptor` is open on; null unless that is a plain file.
    static std::unique_ptr<File> Of(Descriptor descriptor);

    explicit LinuxFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override;
    bool Write(std::int64_t offset, std::span<const std::byte> source) override;
    std::optional<std::int64_t> Length() override;
    bool Truncate(std::int64_t length) override;

private:
    Descriptor descriptor_;
};

}  // namespace mavrin2::platform
