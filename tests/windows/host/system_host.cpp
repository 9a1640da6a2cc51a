#include "tests/windows/host/system_host.h"

#include <filesystem>
#include <stdexcept>
#include <string>

#include "automation/text.h"
#include "control/interfaces/scale.h"

namespace mavrin2::tests {
namespace {

using automation::ComPtr;
using interfaces::IMavrin2;

// A bitmap that can be drawn on and looked into.
class Canvas {
public:
    Canvas(int width, int height) : context_(::CreateCompatibleDC(nullptr)) {
        BITMAPINFO format = {};
        format.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = ::CreateDIBSection(context_, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (!bitmap_) throw std::runtime_error("no bitmap");
        ::SelectObject(context_, bitmap_);
        first_ = static_cast<const std::uint32_t*>(bits);
        count_ = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        ::DeleteDC(context_);
        ::DeleteObject(bitmap_);
    }

    HDC Context() const { return context_; }
    std::vector<std::uint32_t> Pixels() const {
        ::GdiFlush();
        std::vector<std::uint32_t> pixels(first_, first_ + count_);
        for (std::uint32_t& pixel : pixels)
            pixel &= 0xFFFFFF;
        return pixels;
    }

private:
    HDC context_;
    HBITMAP bitmap_;
    const std::uint32_t* first_;
    std::size_t count_;
};

void HideScales(IMavrin2& control) {
    ComPtr<interfaces::IMavrin2Scale> scale;
    Check(control.get_ScaleX(scale.Put()), "ScaleX");
    Check(scale->put_Visible(0), "ScaleX.Visible");
    Check(control.get_ScaleY(scale.Put()), "ScaleY");
    Check(scale->put_Visible(0), "ScaleY.Visible");
}

}  // namespace

void Check(HRESULT status, const char* what) {
    if (FAILED(status)) throw std::runtime_error(what + (": " + std::to_string(status)));
}

SystemHost::SystemHost(int width, int height) : width_(width), height_(height) {
    window_ = ::CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                                0, width, height, nullptr, nullptr, nullptr, nullptr);
    if (!window_) throw std::runtime_error("no window");
    using Create =
        HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*);
    const HMODULE library = ::LoadLibraryW(L"atl.dll");
    const auto create = reinterpret_cast<Create>(reinterpret_cast<void*>(
        library ? ::GetProcAddress(library, "AtlAxCreateControlEx") : nullptr));
    if (!create) throw std::runtime_error("no container");
    ComPtr<IUnknown> control;
    Check(
        create(L"KovMavrin2.Mavrin2", window_, nullptr, nullptr, control.Put(), IID_NULL, nullptr),
        "creating the control in its container");
    control_ = control.As<IMavrin2>();
    HideScales(*control_);
}

SystemHost::~SystemHost() {
    control_.Reset();
    ::DestroyWindow(window_);
}

void SystemHost::Open(const char* sound) const {
    const automation::Bstr name(
        automation::OleStringView(std::filesystem::absolute(sound).native()));
    Check(control_->Open(name.Get(), interfaces::FormatTypeConstants::DEFAULT), "Open");
}

HWND SystemHost::Window() const {
    HWND child = nullptr;
    Check(control_.As<IOleInPlaceObject>()->GetWindow(&child), "the control's window");
    return child;
}

Picture SystemHost::InWindow() const {
    const HWND child = Window();
    RECT area = {};
    ::GetClientRect(child, &area);
    if (area.right != width_ || area.bottom != height_)
        throw std::runtime_error("the window does not fill its container");
    ::RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    const Canvas canvas(width_, height_);
    const HDC screen = ::GetDC(child);
    ::BitBlt(canvas.Context(), 0, 0, width_, height_, screen, 0, 0, SRCCOPY);
    ::ReleaseDC(child, screen);
    return canvas.Pixels();
}

Picture SystemHost::Drawn() const {
    const Canvas canvas(width_, height_);
    ::SetMapMode(canvas.Context(), MM_ANISOTROPIC);
    ::SetWindowExtEx(canvas.Context(), 10, 10, nullptr);
    ::SetViewportExtEx(canvas.Context(), 1, 1, nullptr);
    ::SetViewportOrgEx(canvas.Context(), -5, -7, nullptr);
    const RECT bounds = {50, 70, 50 + 10 * width_, 70 + 10 * height_};
    Check(::OleDraw(control_.Get(), DVASPECT_CONTENT, canvas.Context(), &bounds), "OleDraw");
    if (::GetMapMode(canvas.Context()) != MM_ANISOTROPIC)
        throw std::runtime_error("the host's units were not put back");
    return canvas.Pixels();
}

}  // namespace mavrin2::tests
