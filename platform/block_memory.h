#pragma once

#include <cstddef>
#include <memory>

namespace mavrin2::platform {

// Memory for blocks of sound, which is allocated in large pieces and may be refused. Used on one
// thread.
class BlockMemory {
public:
    static constexpr std::size_t PageSize = 4096;

    virtual ~BlockMemory() = default;

    // `size` bytes that begin at a page of memory, or null. They are given back through Free.
    virtual std::byte* Allocate(std::size_t size) noexcept = 0;
    virtual void Free(std::byte* memory) noexcept = 0;
};

// The program's heap.
std::shared_ptr<BlockMemory> HeapBlockMemory();

}  // namespace mavrin2::platform
