#include "platform/ole_text.h"

#include "platform/linux/automation/text_encoding.h"

namespace mavrin2::platform {

std::string Utf8Of(std::u16string_view text) {
    return automation::ToUtf8(text);
}

std::u16string OleTextOf(std::string_view utf8) {
    return automation::FromUtf8(utf8);
}

}  // namespace mavrin2::platform
