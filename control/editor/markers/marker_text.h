#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "automation/text.h"

namespace mavrin2::editor {

// What the text of a marker in a file says of it.
struct MarkerTextValues {
    std::optional<std::uint32_t> Color;
    std::uint32_t Play = 0;
    std::int64_t CutPoint = 0;  // frames, not negative
};

// The text that goes into files: "Color:8224255  CutPoint:0       ".
std::string MarkerText(std::uint32_t color, std::int64_t cutPoint);

// Finds the values anywhere in a text. Of the characters after "Color:" and "Play:", 8 are read.
MarkerTextValues ParseMarkerText(automation::OleStringView text);

}  // namespace mavrin2::editor
