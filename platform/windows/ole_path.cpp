#include "platform/ole_text.h"

namespace mavrin2::platform {

std::filesystem::path PathOf(std::wstring_view text) {
    return text;
}

std::wstring OleTextOfPath(const std::filesystem::path& path) {
    return path.native();
}

}  // namespace mavrin2::platform
