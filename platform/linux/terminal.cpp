#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace mavrin2::platform {

std::optional<int> TerminalWidth(std::FILE* stream) {
    constexpr int kUsual = 80;
    const int descriptor = ::fileno(stream);
    if (descriptor < 0 || ::isatty(descriptor) == 0) return std::nullopt;
    winsize size = {};
    if (::ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsual;
    return size.ws_col;
}

}  // namespace mavrin2::platform
