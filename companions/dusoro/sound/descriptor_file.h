#pragma once

#include "platform/files.h"

namespace mavrin2::dusoro {

// A plain file behind an open descriptor, which it owns.
class DescriptorFile : public platform::File {
public:
    explicit DescriptorFile(int descriptor) : descriptor_(descriptor) {}
    DescriptorFile(const DescriptorFile&) = delete;
    DescriptorFile& operator=(const DescriptorFile&) = delete;
    ~DescriptorFile() override { Close(); }

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override;
    bool Write(std::int64_t offset, std::span<const std::byte> source) override;
    std::optional<std::int64_t> Length() override;

    // False when the system only now tells that something was not written. Closed either way.
    bool Close();

protected:
    int Descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

// A plain file for reading; null for one that is missing or not permitted, and for folders, pipes
// and devices, without waiting for any of them.
std::unique_ptr<platform::File> OpenInput(const std::filesystem::path& path);

}  // namespace mavrin2::dusoro
