#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "companions/ontiva/info/sound_info.h"

namespace mavrin2::ontiva {

// All of a marker in one line of text, for formats whose own chapters are coarser:
//     position length country language dialect codepage TAB label TAB note TAB text
// with a backslash before tabs, line ends (as t, n, r) and backslashes of the texts.
std::string RenderExact(const Marker& marker);
// Nothing for any other text.
std::optional<Marker> ParseExact(std::string_view line);

// Whole milliseconds, rounded, as chapters count them. `rate` is in hertz and above 0.
std::int64_t ToMilliseconds(std::int64_t frames, std::int32_t rate);
// Sample frames, rounded, kept within 32 bits.
std::int32_t ToFrames(std::int64_t milliseconds, std::int32_t rate);

// Where a chapter says that it is.
struct Chapter {
    std::int64_t Start = 0;  // milliseconds
    std::int64_t End = 0;    // milliseconds; not after Start when there is no end
    std::string Label;
};

// The marker of a chapter that another program may have changed since `exact` was written with it.
// Of times that were not changed the exact ones hold.
Marker MarkerOf(const Chapter& chapter, const std::optional<Marker>& exact, std::int32_t rate);
Chapter ChapterOf(const Marker& marker, std::int32_t rate);

}  // namespace mavrin2::ontiva
