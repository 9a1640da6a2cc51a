#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace mavrin2::editor {

// The samples in a block that begins at an even address; half a sample at the end is left out.
inline std::span<std::int16_t> AsSamples(std::span<std::byte> bytes) {
    return {reinterpret_cast<std::int16_t*>(bytes.data()), bytes.size() / 2};
}

}  // namespace mavrin2::editor
