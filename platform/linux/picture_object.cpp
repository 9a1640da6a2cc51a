#include "platform/picture_object.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

#include "platform/linux/automation/counted.h"
#include "platform/pixel_target.h"

namespace mavrin2::platform {
namespace {

constexpr int kHimetricPerInch = 2540;
constexpr int kPixelsPerInch = 96;

// 0x00BBGGRR to 0x00RRGGBB, and back.
std::uint32_t Swapped(std::uint32_t color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

class PictureObject final : public automation::Counted<IPicture, IPictureDisp> {
public:
    // Rows from the top, 0x00RRGGBB.
    PictureObject(std::vector<std::uint32_t> pixels, int width)
        : pixels_(std::move(pixels)),
          width_(width),
          height_(static_cast<int>(pixels_.size()) / width) {}

    STDMETHODIMP get_Handle(OLE_HANDLE* handle) override { return Refuse(handle); }
    STDMETHODIMP get_hPal(OLE_HANDLE* palette) override { return Refuse(palette); }
    STDMETHODIMP get_Type(SHORT* type) override { return Get(PICTYPE_BITMAP, type); }
    STDMETHODIMP get_Width(OLE_XSIZE_HIMETRIC* width) override {
        return Get(Himetric(width_), width);
    }
    STDMETHODIMP get_Height(OLE_YSIZE_HIMETRIC* height) override {
        return Get(Himetric(height_), height);
    }
    STDMETHODIMP Render(HDC target, LONG x, LONG y, LONG width, LONG height,
                        OLE_XPOS_HIMETRIC sourceX, OLE_YPOS_HIMETRIC sourceY,
                        OLE_XSIZE_HIMETRIC sourceWidth, OLE_YSIZE_HIMETRIC sourceHeight,
                        LPCRECT) override;
    STDMETHODIMP set_hPal(OLE_HANDLE) override { return E_NOTIMPL; }
    STDMETHODIMP get_CurDC(HDC* context) override { return Refuse(context); }
    STDMETHODIMP SelectPicture(HDC, HDC*, OLE_HANDLE*) override { return E_NOTIMPL; }
    STDMETHODIMP get_KeepOriginalFormat(BOOL* keep) override { return Get<BOOL>(TRUE, keep); }
    STDMETHODIMP put_KeepOriginalFormat(BOOL) override { return S_OK; }
    STDMETHODIMP PictureChanged() override { return S_OK; }
    STDMETHODIMP SaveAsFile(IStream*, BOOL, LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Attributes(DWORD* attributes) override { return Get<DWORD>(0, attributes); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return Get(0u, count); }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
        return Refuse(information);
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }

private:
    ~PictureObject() override = default;

    void* Find(REFIID iid) override {
        if (iid == IID_IPicture) return static_cast<IPicture*>(this);
        if (iid == IID_IDispatch || iid == IID_IPictureDisp)
            return static_cast<IPictureDisp*>(this);
        return nullptr;
    }

    template <typename Value>
    static HRESULT Get(const Value& value, Value* result) {
        if (result == nullptr) return E_POINTER;
        *result = value;
        return S_OK;
    }
    template <typename Value>
    static HRESULT Refuse(Value* result) {
        if (result != nullptr) *result = Value();
        return E_NOTIMPL;
    }

    static LONG Himetric(int pixels) {
        return (pixels * kHimetricPerInch + kPixelsPerInch / 2) / kPixelsPerInch;
    }

    // `up` counts from the bottom.
    std::uint32_t PixelAt(int column, int up) const {
        const auto row = static_cast<std::size_t>(height_ - 1 - up);
        return pixels_[row * static_cast<std::size_t>(width_) + static_cast<std::size_t>(column)];
    }

    std::vector<std::uint32_t> pixels_;
    int width_;
    int height_;
};

// The pixel of `count` that is nearest to the middle of step `i` of `steps` through `extent`, which
// may go backwards, of a whole `size`.
int Nearest(LONG i, LONG steps, LONG from, LONG extent, LONG size, int count) {
    const double at = from + (static_cast<double>(i) + 0.5) * extent / steps;
    return std::clamp(static_cast<int>(at * count / size), 0, count - 1);
}

HRESULT PictureObject::Render(HDC target, LONG x, LONG y, LONG width, LONG height,
                              OLE_XPOS_HIMETRIC sourceX, OLE_YPOS_HIMETRIC sourceY,
                              OLE_XSIZE_HIMETRIC sourceWidth, OLE_YSIZE_HIMETRIC sourceHeight,
                              LPCRECT) {
    constexpr LONG kLargest = 32767;
    if (target == nullptr) return E_INVALIDARG;
    if (width < 1 || height < 1 || width > kLargest || height > kLargest) return E_INVALIDARG;
    try {
        std::vector<std::uint32_t> scaled;
        scaled.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        for (LONG row = 0; row < height; ++row) {
            const int up = Nearest(row, height, sourceY, sourceHeight, Himetric(height_), height_);
            for (LONG column = 0; column < width; ++column)
                scaled.push_back(PixelAt(
                    Nearest(column, width, sourceX, sourceWidth, Himetric(width_), width_), up));
        }
        target->Blit(x, y, {scaled.data(), width, height, width});
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace

HRESULT NewPicture(std::span<const std::uint32_t> pixels, int width, IPictureDisp** picture) {
    if (picture == nullptr) return E_POINTER;
    *picture = nullptr;
    try {
        std::vector<std::uint32_t> rows;
        for (std::size_t left = pixels.size(); left > 0; left -= static_cast<std::size_t>(width))
            for (const std::uint32_t color :
                 pixels.first(left).last(static_cast<std::size_t>(width)))
                rows.push_back(Swapped(color));
        *picture = new PictureObject(std::move(rows), width);
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT DrawPicture(IUnknown* picture, std::span<std::uint32_t> pixels, int width) {
    if (picture == nullptr) return E_POINTER;
    IPicture* source = nullptr;
    HRESULT status = picture->QueryInterface(IID_IPicture, reinterpret_cast<void**>(&source));
    if (FAILED(status)) return status;
    const int height = static_cast<int>(pixels.size()) / width;
    OLE_XSIZE_HIMETRIC sourceWidth = 0;
    OLE_YSIZE_HIMETRIC sourceHeight = 0;
    source->get_Width(&sourceWidth);
    source->get_Height(&sourceHeight);
    try {
        std::vector<std::uint32_t> drawn(pixels.size());
        PixelTarget target({drawn.data(), width, height, width});
        status = source->Render(&target, 0, 0, width, height, 0, sourceHeight - 1, sourceWidth,
                                -sourceHeight, nullptr);
        for (std::size_t row = 0; row < pixels.size(); row += static_cast<std::size_t>(width))
            std::transform(drawn.end() - static_cast<std::ptrdiff_t>(row) - width,
                           drawn.end() - static_cast<std::ptrdiff_t>(row),
                           pixels.begin() + static_cast<std::ptrdiff_t>(row), Swapped);
    } catch (const std::bad_alloc&) {
        status = E_OUTOFMEMORY;
    }
    source->Release();
    return status;
}

}  // namespace mavrin2::platform
