#include "platform/block_memory.h"

#include <new>

namespace mavrin2::platform {
namespace {

class HeapMemory final : public BlockMemory {
public:
    std::byte* Allocate(std::size_t size) noexcept override {
        return static_cast<std::byte*>(
            ::operator new[](size, std::align_val_t(PageSize), std::nothrow));
    }
    void Free(std::byte* memory) noexcept override {
        ::operator delete[](memory, std::align_val_t(PageSize));
    }
};

}  // namespace

std::shared_ptr<BlockMemory> HeapBlockMemory() {
    return std::make_shared<HeapMemory>();
}

}  // namespace mavrin2::platform
