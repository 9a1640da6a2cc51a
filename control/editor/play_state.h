#pragma once

#include <cstdint>

namespace mavrin2::editor {

// Where the sound card is, for whoever shows it.
struct PlayState {
    std::int32_t PlayColumn = 0;  // of the wave area
};

}  // namespace mavrin2::editor
