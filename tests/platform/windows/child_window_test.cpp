// The control's window as a real child window, and drawing on the system's contexts.

#include "platform/control_window.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace mavrin2::tests {
namespace {

using platform::ControlWindow;
using platform::DrawingTarget;

constexpr std::uint32_t kColor = 0x102030;

void Fill(DrawingTarget& target, int x, int y, int width, int height) {
    std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height), kColor);
    target.Blit(x, y, {pixels.data(), width, height, width});
}

class WindowsControlWindow : public testing::Test, protected platform::WindowHandler {
protected:
    WindowsControlWindow()
        : Parent(::CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 200, 100,
                                   nullptr, nullptr, nullptr, nullptr)) {}
    ~WindowsControlWindow() {
        Window.reset();
        if (Parent) ::DestroyWindow(Parent);
    }

    void Paint(DrawingTarget& target, int width, int height) override {
        ++Paints;
        Size = {width, height};
        Fill(target, 0, 0, width, height);
    }
    void Destroyed() override {
        ++Ends;
        Window.reset();
    }

    void Make(const RECT& clip = {0, 0, 200, 100}) {
        Window = platform::NewControlWindow(Parent, {10, 20, 110, 70}, clip, *this);
    }
    // 0x00BBGGRR; what is not the window's is CLR_INVALID.
    COLORREF Pixel(int x, int y) {
        ::RedrawWindow(Parent, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const HDC context = ::GetDC(Window->Handle());
        const COLORREF color = ::GetPixel(context, x, y);
        ::ReleaseDC(Window->Handle(), context);
        return color;
    }

    HWND Parent;
    std::unique_ptr<ControlWindow> Window;
    int Paints = 0;
    int Ends = 0;
    std::pair<int, int> Size;
};

TEST_F(WindowsControlWindow, IsPaintedMovedAndClipped) {
    Make();
    ASSERT_TRUE(Window);
    constexpr LONG kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    EXPECT_EQ(::GetWindowLongW(Window->Handle(), GWL_STYLE), kStyle);
    EXPECT_EQ(::GetParent(Window->Handle()), Parent);
    EXPECT_EQ(Pixel(99, 49), COLORREF{0x302010});
    EXPECT_EQ(Size, (std::pair{100, 50}));
    Window->Invalidate();
    Pixel(0, 0);
    EXPECT_EQ(Paints, 2);

    EXPECT_TRUE(Window->DrawNow(
        [](DrawingTarget& target) { target.DrawVertical(3, -10, 1000, 0xFF8040); }));
    EXPECT_EQ(Pixel(3, 49), COLORREF{0x4080FF});
    EXPECT_EQ(Pixel(4, 49), COLORREF{0x302010});

    Window->Move({0, 0, 60, 40}, {10, 5, 50, 1000});
    EXPECT_EQ(Pixel(10, 5), COLORREF{0x302010});
    EXPECT_EQ(Size, (std::pair{60, 40}));
    RECT region = {};
    EXPECT_EQ(::GetWindowRgnBox(Window->Handle(), &region), SIMPLEREGION);
    EXPECT_EQ(region.left, 10);
    EXPECT_EQ(region.bottom, 40);
    Window->Move({0, 0, 60, 40}, {0, 0, 60, 40});
    EXPECT_EQ(::GetWindowRgnBox(Window->Handle(), &region), ERROR) << "nothing is hidden any more";
    Window->Show(false);
    EXPECT_FALSE(::IsWindowVisible(Window->Handle()));
    Window->Show(true);
    EXPECT_TRUE(::IsWindowVisible(Window->Handle()));
    EXPECT_EQ(Ends, 0);
}

TEST_F(WindowsControlWindow, EndsByItselfOrWithItsParent) {
    Make();
    const HWND window = Window->Handle();
    Window.reset();
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(Ends, 0) << "a requested change is not reported";

    Make({0, 0, 30, 30});
    ::DestroyWindow(std::exchange(Parent, nullptr));
    EXPECT_EQ(Ends, 1);
    EXPECT_FALSE(Window);
    for (HWND none : {HWND{}, window})
        EXPECT_FALSE(platform::NewControlWindow(none, {}, {}, *this));
}

TEST(ContextTarget, DrawsInPixelsAndLeavesTheHostsUnitsAlone) {
    const HDC context = ::CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = ::CreateBitmap(20, 20, 1, 32, nullptr);
    const HGDIOBJ before = ::SelectObject(context, bitmap);
    ::SetMapMode(context, MM_ANISOTROPIC);
    ::SetWindowExtEx(context, 100, -100, nullptr);  // upward
    ::SetViewportExtEx(context, 10, 10, nullptr);
    ::SetViewportOrgEx(context, 2, 15, nullptr);
    const RECT pixels = platform::PixelsOf(context, {10, 20, 60, 120});
    EXPECT_EQ(pixels.left, 3);
    EXPECT_EQ(pixels.top, 13);
    EXPECT_EQ(pixels.right, 8);
    EXPECT_EQ(pixels.bottom, 3);
    {
        const auto target = platform::TargetOf(context);
        Fill(*target, 3, 3, 5, 10);
        Fill(*target, 0, 0, 0, 5);
    }
    EXPECT_EQ(::GetMapMode(context), MM_ANISOTROPIC);
    ::SetMapMode(context, MM_TEXT);
    ::SetViewportOrgEx(context, 0, 0, nullptr);
    for (const auto& [x, y, inside] : {std::tuple{3, 3, true},
                                       {7, 12, true},
                                       {2, 3, false},
                                       {8, 12, false},
                                       {7, 13, false},
                                       {3, 2, false}})
        EXPECT_EQ(::GetPixel(context, x, y) == COLORREF{0x302010}, inside) << x << ' ' << y;
    EXPECT_FALSE(platform::TargetOf(nullptr));
    ::SelectObject(context, before);
    ::DeleteDC(context);
    ::DeleteObject(bitmap);
    const SIZE dots = platform::ScreenResolution();
    EXPECT_GT(dots.cx, 0);
    EXPECT_GT(dots.cy, 0);
}

}  // namespace
}  // namespace mavrin2::tests
