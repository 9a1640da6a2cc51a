#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "platform/block_memory.h"

namespace mavrin2::editor {

// Memory for one block of sound, taken at the first use and kept. A piece is at the same offset
// within a page of memory as within a page of the file it will be written to: measured, that is
// faster than any other way to copy, that of the kernel included.
class BlockBuffer {
public:
    // Enough for copying, which takes as many pieces as it needs.
    static constexpr std::size_t CopyCapacity = std::size_t{1024} * 1024;

    explicit BlockBuffer(platform::BlockMemory& memory, std::size_t capacity = CopyCapacity)
        : memory_(memory), capacity_(capacity), block_(nullptr, Free{memory}) {}

    // False when the system refuses the memory.
    bool Take();
    // A place for bytes that will be written at that offset of a file: as many as wanted, or up to
    // the end of the buffer, which is then the end of a page of the file. Empty when the system
    // refuses the memory.
    std::span<std::byte> PieceFor(std::int64_t fileOffset, std::size_t wanted);

private:
    struct Free {
        platform::BlockMemory& Memory;
        void operator()(std::byte* block) const { Memory.Free(block); }
    };

    platform::BlockMemory& memory_;
    std::size_t capacity_;
    std::unique_ptr<std::byte[], Free> block_;
};

}  // namespace mavrin2::editor
