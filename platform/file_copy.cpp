#include "platform/file_copy.h"

#include <algorithm>

namespace mavrin2::platform {

CopyOutcome CopyWholeFile(File& source, File& target) {
    constexpr std::int64_t blockSize = std::int64_t{1} << 20;
    const auto length = source.Length();
    if (!length) return CopyOutcome::ReadFailed;
    std::vector<std::byte> block(static_cast<std::size_t>(std::min(*length, blockSize)));
    for (std::int64_t done = 0; done < *length;) {
        const auto wanted = static_cast<std::size_t>(std::min(*length - done, blockSize));
        const auto bytes = std::span(block).first(wanted);
        // A file that became shorter meanwhile is not whole.
        if (source.Read(done, bytes) != wanted) return CopyOutcome::ReadFailed;
        if (!target.Write(done, bytes)) return CopyOutcome::WriteFailed;
        done += static_cast<std::int64_t>(wanted);
    }
    return CopyOutcome::Done;
}

}  // namespace mavrin2::platform
