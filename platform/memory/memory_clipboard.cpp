#include "platform/memory/memory_clipboard.h"

#include "platform/file_copy.h"

namespace mavrin2::platform {

SoundClipboard::PutOutcome MemoryClipboard::Put(File& file) {
    if (refused_) return PutOutcome::Unavailable;
    const auto length = file.Length().value_or(0);
    std::vector<std::byte> bytes(static_cast<std::size_t>(length));
    if (bytes.empty() || file.Read(0, bytes) != bytes.size()) return PutOutcome::NotRead;
    files_.Remove(kPath);
    files_.AddFile(kPath, bytes);
    return PutOutcome::Done;
}

std::unique_ptr<File> MemoryClipboard::Open() {
    return refused_ ? nullptr : files_.OpenForReading(kPath);
}

}  // namespace mavrin2::platform
