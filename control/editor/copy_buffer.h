#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>

namespace mavrin2::editor {

// Memory through which sound is copied from file to file. Pieces begin and end at the pages of the
// target file and lie at the same place within a page of memory: measured, that is faster than any
// other way to copy, that of the kernel included.
class CopyBuffer {
public:
    static constexpr std::size_t PageSize = 4096;
    static constexpr std::size_t Capacity = std::size_t{1024} * 1024;

    // A place for at most `wanted` bytes that will be written at that offset of a file; empty when
    // there is no memory. Taken at the first use and kept.
    std::span<std::byte> PieceFor(std::int64_t fileOffset, std::size_t wanted);

private:
    struct Free {
        void operator()(std::byte* memory) const {
            ::operator delete[](memory, std::align_val_t(PageSize));
        }
    };
    std::unique_ptr<std::byte[], Free> memory_;
};

}  // namespace mavrin2::editor
