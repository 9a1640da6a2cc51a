#include "platform/windows/cursors.h"

#include <algorithm>

namespace mavrin2::platform {

HCURSOR SystemCursor(PointerShape shape) {
    static constexpr WORD kNames[] = {32512, 32515, 32513, 32641, 32646, 32643, 32645, 32642,
                                      32644, 32516, 32514, 32648, 32650, 32651, 32640};
    const auto index = static_cast<std::size_t>(shape) - 1;
    return ::LoadCursorW(nullptr, MAKEINTRESOURCEW(kNames[index < std::size(kNames) ? index : 0]));
}

HCURSOR NewCursor(const PointerImage& image) {
    BITMAPV5HEADER header = {};
    header.bV5Size = sizeof header;
    header.bV5Width = image.Width;
    header.bV5Height = -image.Height;  // rows from the top
    header.bV5Planes = 1;
    header.bV5BitCount = 32;
    header.bV5Compression = BI_BITFIELDS;
    header.bV5RedMask = 0xFF0000;
    header.bV5GreenMask = 0xFF00;
    header.bV5BlueMask = 0xFF;
    header.bV5AlphaMask = 0xFF000000;
    const HDC screen = ::GetDC(nullptr);
    void* bits = nullptr;
    const HBITMAP color = ::CreateDIBSection(screen, reinterpret_cast<const BITMAPINFO*>(&header),
                                             DIB_RGB_COLORS, &bits, nullptr, 0);
    ::ReleaseDC(nullptr, screen);
    // Without alpha in it, nothing of the mask is used; it has to be there.
    const HBITMAP mask = ::CreateBitmap(image.Width, image.Height, 1, 1, nullptr);
    HCURSOR cursor = nullptr;
    if (color && mask) {
        std::ranges::copy(image.Pixels, static_cast<std::uint32_t*>(bits));
        ICONINFO information = {FALSE, static_cast<DWORD>(image.HotSpotX),
                                static_cast<DWORD>(image.HotSpotY), mask, color};
        cursor = ::CreateIconIndirect(&information);
    }
    if (color) ::DeleteObject(color);
    if (mask) ::DeleteObject(mask);
    return cursor;
}

}  // namespace mavrin2::platform
