#pragma once

#include <memory>

#include "platform/memory/memory_file_system.h"
#include "platform/ports.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::tests {

// A file system and an empty folder in it, one for each adapter: what the contract says must hold
// for all of them.
class SystemWorld {
public:
    platform::FileSystem& Files() { return *files_; }
    std::filesystem::path Folder() const { return folder_.Path(); }
    void AddFolder(const std::filesystem::path& path) { std::filesystem::create_directories(path); }

private:
    ScratchFolder folder_;
    std::shared_ptr<platform::FileSystem> files_ = platform::SystemPorts().Files;
};

class MemoryWorld {
public:
    MemoryWorld() { files_.AddFolder(Folder()); }
    platform::FileSystem& Files() { return files_; }
    std::filesystem::path Folder() const { return "/work"; }
    void AddFolder(const std::filesystem::path& path) { files_.AddFolder(path); }

private:
    platform::MemoryFileSystem files_;
};

inline std::span<const std::byte> BytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

inline bool Write(platform::File& file, std::int64_t offset, std::string_view text) {
    return file.Write(offset, BytesOf(text));
}

inline std::string Read(platform::File& file, std::int64_t offset, std::size_t count) {
    std::string text(count, '?');
    const auto read = file.Read(offset, std::as_writable_bytes(std::span(text)));
    return read ? text.substr(0, *read) : "(failed)";
}

}  // namespace mavrin2::tests
