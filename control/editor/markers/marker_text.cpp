#include "control/editor/markers/marker_text.h"

#include <algorithm>
#include <limits>

namespace mavrin2::editor {
namespace {

using automation::OleStringView;

constexpr std::size_t kColumns = 8;

// Padded to 8 characters; a longer number has all its digits.
std::string Padded(std::uint32_t low32Bits) {
    std::string text = std::to_string(static_cast<std::int32_t>(low32Bits));
    if (text.size() < kColumns) text.append(kColumns - text.size(), ' ');
    return text;
}

bool IsBlank(OLECHAR c) {
    return c == OLESTR(' ') || (c >= OLESTR('\t') && c <= OLESTR('\r'));
}

// A decimal number at the beginning of the text, in the manner of C: blanks, a sign, digits.
std::int32_t NumberAt(OleStringView text) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    const auto* next = std::find_if_not(text.begin(), text.end(), IsBlank);
    const bool negative = next != text.end() && *next == OLESTR('-');
    if (negative || (next != text.end() && *next == OLESTR('+'))) ++next;
    std::int64_t number = 0;
    for (; next != text.end() && *next >= OLESTR('0') && *next <= OLESTR('9'); ++next)
        number = std::min(number * 10 + (*next - OLESTR('0')), kMost);
    return static_cast<std::int32_t>(negative ? -number : number);
}

// What follows the first occurrence of a name.
std::optional<OleStringView> After(OleStringView name, OleStringView text) {
    const std::size_t found = text.find(name);
    if (found == OleStringView::npos) return std::nullopt;
    return text.substr(found + name.size());
}

}  // namespace

std::string MarkerText(std::uint32_t color, std::int64_t cutPoint) {
    return "Color:" + Padded(color) + " CutPoint:" + Padded(static_cast<std::uint32_t>(cutPoint));
}

MarkerTextValues ParseMarkerText(OleStringView text) {
    MarkerTextValues values;
    if (const auto color = After(OLESTR("Color:"), text))
        values.Color = static_cast<std::uint32_t>(NumberAt(color->substr(0, kColumns)));
    if (const auto play = After(OLESTR("Play:"), text))
        values.Play = static_cast<std::uint32_t>(NumberAt(play->substr(0, kColumns)));
    if (const auto cutPoint = After(OLESTR("CutPoint:"), text))
        values.CutPoint = std::max(NumberAt(*cutPoint), 0);
    return values;
}

}  // namespace mavrin2::editor
