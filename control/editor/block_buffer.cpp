#include "control/editor/block_buffer.h"

#include <algorithm>

namespace mavrin2::editor {

bool BlockBuffer::Take() {
    if (!block_) block_.reset(memory_.Allocate(capacity_));
    return block_ != nullptr;
}

std::span<std::byte> BlockBuffer::PieceFor(std::int64_t fileOffset, std::size_t wanted) {
    if (!Take()) return {};
    // Samples are read where they are, so they begin at even addresses.
    const auto inPage =
        static_cast<std::size_t>(fileOffset) % platform::BlockMemory::PageSize / 2 * 2;
    return {block_.get() + inPage, std::min(wanted, capacity_ - inPage)};
}

}  // namespace mavrin2::editor
