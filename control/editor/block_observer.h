#pragma once

#include <cstdint>
#include <span>

#include "control/signal/quantity.h"

namespace mavrin2::editor {

// Sees the samples of a sound while it is being read into a work file, so that nobody has to read
// them again. The base class sees nothing.
class BlockObserver {
public:
    virtual ~BlockObserver() = default;

    virtual void BeginBlocks(signal::Bytes /*expected*/) {}
    // Interleaved samples, in their order.
    virtual void Block(std::span<const std::int16_t> /*samples*/) {}
    virtual void EndBlocks() {}
};

}  // namespace mavrin2::editor
