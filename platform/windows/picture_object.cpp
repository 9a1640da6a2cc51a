#include "platform/picture_object.h"

#include <algorithm>
#include <memory>
#include <type_traits>

namespace mavrin2::platform {
namespace {

struct BitmapDeleter {
    void operator()(HBITMAP bitmap) const { ::DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter>;

struct ContextDeleter {
    void operator()(HDC context) const { ::DeleteDC(context); }
};
using Context = std::unique_ptr<std::remove_pointer_t<HDC>, ContextDeleter>;

// 0x00BBGGRR to 0x00RRGGBB, and back.
std::uint32_t Swapped(std::uint32_t color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

// Bottom row first. The pixels belong to the bitmap.
Bitmap NewBitmap(int width, int height, std::uint32_t*& pixels) {
    BITMAPINFO format = {};
    format.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = height;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    format.bmiHeader.biCompression = BI_RGB;
    void* data = nullptr;
    Bitmap bitmap(::CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &data, nullptr, 0));
    pixels = static_cast<std::uint32_t*>(data);
    return bitmap;
}

HRESULT Render(IPicture& picture, int width, int height, HDC context) {
    OLE_XSIZE_HIMETRIC sourceWidth = 0;
    OLE_YSIZE_HIMETRIC sourceHeight = 0;
    picture.get_Width(&sourceWidth);
    picture.get_Height(&sourceHeight);
    return picture.Render(context, 0, 0, width, height, 0, sourceHeight - 1, sourceWidth,
                          -sourceHeight, nullptr);
}

}  // namespace

HRESULT NewPicture(std::span<const std::uint32_t> pixels, int width, IPictureDisp** picture) {
    if (picture == nullptr) return E_POINTER;
    *picture = nullptr;
    std::uint32_t* data = nullptr;
    Bitmap bitmap = NewBitmap(width, static_cast<int>(pixels.size()) / width, data);
    if (!bitmap) return E_OUTOFMEMORY;
    std::ranges::transform(pixels, data, Swapped);
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof(PICTDESC);
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.get();
    const HRESULT status = ::OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                                      reinterpret_cast<void**>(picture));
    if (SUCCEEDED(status)) static_cast<void>(bitmap.release());  // the picture's now
    return status;
}

HRESULT DrawPicture(IUnknown* picture, std::span<std::uint32_t> pixels, int width) {
    if (picture == nullptr) return E_POINTER;
    const int height = static_cast<int>(pixels.size()) / width;
    std::uint32_t* data = nullptr;
    const Bitmap bitmap = NewBitmap(width, height, data);
    const Context context(::CreateCompatibleDC(nullptr));
    if (!bitmap || !context) return E_OUTOFMEMORY;
    IPicture* source = nullptr;
    HRESULT status = picture->QueryInterface(IID_IPicture, reinterpret_cast<void**>(&source));
    if (FAILED(status)) return status;
    const HGDIOBJ before = ::SelectObject(context.get(), bitmap.get());
    status = Render(*source, width, height, context.get());
    source->Release();
    ::GdiFlush();
    ::SelectObject(context.get(), before);
    std::transform(data, data + pixels.size(), pixels.begin(), Swapped);
    return status;
}

}  // namespace mavrin2::platform
