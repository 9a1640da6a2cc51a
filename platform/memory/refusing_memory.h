#pragma once

#include "platform/block_memory.h"

namespace mavrin2::platform {

// The heap, which refuses when a test wants it to.
class RefusingMemory final : public BlockMemory {
public:
    // The nth block from now is refused, once; 1 is the next one, 0 none.
    void RefuseNth(int nth) { countdown_ = nth; }

    int Calls() const { return calls_; }
    // Blocks that were not given back.
    int Held() const { return held_; }

    std::byte* Allocate(std::size_t size) noexcept override {
        ++calls_;
        if (countdown_ > 0 && --countdown_ == 0) return nullptr;
        ++held_;
        return heap_->Allocate(size);
    }
    void Free(std::byte* memory) noexcept override {
        --held_;
        heap_->Free(memory);
    }

private:
    std::shared_ptr<BlockMemory> heap_ = HeapBlockMemory();
    int countdown_ = 0;
    int calls_ = 0;
    int held_ = 0;
};

}  // namespace mavrin2::platform
