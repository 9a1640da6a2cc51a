#include "hosts/script/picture/picture_size.h"

#include <algorithm>
#include <charconv>

#include "automation/text.h"
#include "hosts/script/window/host_window.h"

namespace mavrin2::script {
namespace {

struct NamedSize {
    std::string_view Name;
    PictureSize Size;
};

constexpr NamedSize kNamed[] = {{"thumbnail", {320, 180}}, {"vga", {640, 480}},
                                {"hd", {1280, 720}},       {"full-hd", {1920, 1080}},
                                {"4k", {3840, 2160}},      {"8k", {7680, 4320}}};

// A number of pixels; 0 for any other text.
int ParseLength(std::string_view text) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    const bool whole = result.ec == std::errc() && result.ptr == end;
    return whole && value > 0 ? value : 0;
}

}  // namespace

std::optional<PictureSize> PictureSizeOf(std::string_view text) {
    const std::string name = automation::AsciiLower(std::string(text));
    const auto* const named = std::ranges::find(kNamed, name, &NamedSize::Name);
    if (named != std::end(kNamed)) return named->Size;
    const std::size_t sign = std::min(name.find('x'), name.size());
    const std::string_view whole = name;
    const PictureSize size{ParseLength(whole.substr(0, sign)),
                           ParseLength(whole.substr(std::min(sign + 1, whole.size())))};
    const bool drawable =
        size.Width > 0 && size.Height > 0 && HostWindow::CanBe(size.Width, size.Height);
    return drawable ? std::optional(size) : std::nullopt;
}

std::string PictureSizeNames() {
    std::string names;
    for (const NamedSize& one : kNamed) {
        if (!names.empty()) names += ", ";
        names += one.Name;
        names +=
            " (" + std::to_string(one.Size.Width) + "x" + std::to_string(one.Size.Height) + ")";
    }
    return names;
}

}  // namespace mavrin2::script
