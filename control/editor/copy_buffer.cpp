#include "control/editor/copy_buffer.h"

#include <algorithm>

namespace mavrin2::editor {

std::span<std::byte> CopyBuffer::PieceFor(std::int64_t fileOffset, std::size_t wanted) {
    if (!memory_)
        memory_.reset(static_cast<std::byte*>(
            ::operator new[](Capacity, std::align_val_t(PageSize), std::nothrow)));
    if (!memory_) return {};
    const auto inPage = static_cast<std::size_t>(fileOffset) % PageSize;
    return {memory_.get() + inPage, std::min(wanted, Capacity - inPage)};
}

}  // namespace mavrin2::editor
