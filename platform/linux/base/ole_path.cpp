#include "platform/ole_text.h"

namespace mavrin2::platform {

std::filesystem::path PathOf(std::u16string_view text) {
    return Utf8Of(text);
}

std::u16string OleTextOfPath(const std::filesystem::path& path) {
    return OleTextOf(path.native());
}

}  // namespace mavrin2::platform
