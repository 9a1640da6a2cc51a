#pragma once

#include <cstddef>
#include <span>

#include "control/signal/quantity.h"

namespace mavrin2::editor {

// Sees samples while they pass by on their way into a work file, so that nobody has to read them
// again. The base class sees nothing.
class BlockObserver {
public:
    virtual ~BlockObserver() = default;

    // A sound is read from a file that promises so many bytes.
    virtual void BeginLoading(signal::Bytes /*expected*/) {}
    // A new version of the document is written; if it is completed, it has that length.
    virtual void BeginVersion(signal::Bytes /*length*/) {}
    // Bytes of interleaved samples, in their order; a frame may go on in the next block.
    virtual void Block(std::span<const std::byte> /*samples*/) {}
    virtual void EndLoading() {}
    // The version is complete (or never will be, and what was seen of it is forgotten).
    virtual void EndVersion(bool /*complete*/) {}
};

}  // namespace mavrin2::editor
