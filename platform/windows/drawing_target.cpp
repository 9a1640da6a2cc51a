#include "platform/drawing_target.h"

namespace mavrin2::platform {
namespace {

// Draws in pixels of the device, whatever units the host draws in, and leaves them as they were.
class ContextTarget final : public DrawingTarget {
public:
    explicit ContextTarget(HDC context) : context_(context), saved_(::SaveDC(context)) {
        ::SetMapMode(context_, MM_TEXT);
        ::SetWindowOrgEx(context_, 0, 0, nullptr);
        ::SetViewportOrgEx(context_, 0, 0, nullptr);
    }
    ContextTarget(const ContextTarget&) = delete;
    ContextTarget& operator=(const ContextTarget&) = delete;
    ~ContextTarget() override { ::RestoreDC(context_, saved_); }

    void Blit(int x, int y, const Pixels& pixels) override {
        if (pixels.Width <= 0 || pixels.Height <= 0) return;
        BITMAPINFO format = {};
        format.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
        format.bmiHeader.biWidth = pixels.Stride;
        format.bmiHeader.biHeight = -pixels.Height;  // rows from the top
        format.bmiHeader.biPlanes = 1;
        format.bmiHeader.biBitCount = 32;
        format.bmiHeader.biCompression = BI_RGB;
        ::SetDIBitsToDevice(context_, x, y, static_cast<DWORD>(pixels.Width),
                            static_cast<DWORD>(pixels.Height), 0, 0, 0,
                            static_cast<UINT>(pixels.Height), pixels.Data, &format, DIB_RGB_COLORS);
    }

    void DrawVertical(int x, int top, int bottom, std::uint32_t color) override {
        const RECT column = {x, top, x + 1, bottom};
        if (top >= bottom) return;
        ::SetDCBrushColor(context_, RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF));
        ::FillRect(context_, &column, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
    }

    RECT Clip() const override {
        RECT clip = {};
        ::GetClipBox(context_, &clip);
        return clip;
    }

private:
    HDC context_;
    int saved_;
};

}  // namespace

std::unique_ptr<DrawingTarget> TargetOf(HDC handle) {
    return handle ? std::make_unique<ContextTarget>(handle) : nullptr;
}

RECT PixelsOf(HDC handle, const RECTL& bounds) {
    RECT pixels = {bounds.left, bounds.top, bounds.right, bounds.bottom};
    ::LPtoDP(handle, reinterpret_cast<POINT*>(&pixels), 2);
    return pixels;
}

}  // namespace mavrin2::platform
