#include "control/server/container/picture_data.h"

#include <cstring>
#include <vector>

#include "automation/enumeration.h"
#include "control/server/container/measures.h"
#include "platform/pixel_target.h"

namespace mavrin2::server {
namespace {

constexpr FORMATETC kBitmap{CF_DIB, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};

FORMATETC GiveFormat(const FORMATETC& format) {
    return format;
}

using FormatEnumeration =
    automation::Enumeration<IEnumFORMATETC, FORMATETC, FORMATETC, &GiveFormat>;

HRESULT Check(const FORMATETC* format) {
    if (!format) return E_INVALIDARG;
    if (format->cfFormat != kBitmap.cfFormat) return DV_E_FORMATETC;
    if (format->dwAspect != kBitmap.dwAspect) return DV_E_DVASPECT;
    if (format->lindex != kBitmap.lindex) return DV_E_LINDEX;
    return (format->tymed & kBitmap.tymed) != 0 ? S_OK : DV_E_TYMED;
}

// The header of a device-independent bitmap; its rows follow, bottom row first.
struct BitmapHeader {
    std::uint32_t Size = sizeof(BitmapHeader);
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    std::uint16_t Planes = 1;
    std::uint16_t BitCount = 32;
    std::uint32_t Compression = 0;
    std::uint32_t ImageSize = 0;
    std::int32_t DotsPerMetre[2] = {};
    std::uint32_t Colors[2] = {};
};
static_assert(sizeof(BitmapHeader) == 40);

HGLOBAL MakeBitmap(const std::vector<std::uint32_t>& pixels, const SIZE& size) {
    BitmapHeader header;
    header.Width = size.cx;
    header.Height = size.cy;
    header.ImageSize = static_cast<std::uint32_t>(pixels.size() * sizeof(pixels[0]));
    HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, sizeof(header) + header.ImageSize);
    if (!block) throw std::bad_alloc();
    auto* bytes = static_cast<std::byte*>(::GlobalLock(block));
    std::memcpy(bytes, &header, sizeof(header));
    bytes += sizeof(header);
    const std::size_t row = static_cast<std::size_t>(size.cx) * sizeof(pixels[0]);
    for (std::ptrdiff_t y = size.cy - 1; y >= 0 && row > 0; --y, bytes += row)
        std::memcpy(bytes, pixels.data() + y * size.cx, row);
    ::GlobalUnlock(block);
    return block;
}

}  // namespace

STDMETHODIMP PictureData::GetData(FORMATETC* format, STGMEDIUM* medium) {
    return Run([&]() -> HRESULT {
        if (!medium) return E_INVALIDARG;
        *medium = {};
        if (const HRESULT status = Check(format); FAILED(status)) return status;
        if (!state_.Paint) return OLE_E_BLANK;
        const SIZE size = ToPixels(state_.Extent);
        const view::Rectangle bounds = PictureBounds({0, 0, size.cx, size.cy});
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.cx) *
                                          static_cast<std::size_t>(size.cy));
        platform::PixelTarget target({pixels.data(), static_cast<int>(size.cx),
                                      static_cast<int>(size.cy), static_cast<int>(size.cx)});
        state_.Paint(target, bounds, {0, bounds.Height()});
        activation_.RepaintWindow();
        medium->hGlobal = MakeBitmap(pixels, size);
        medium->tymed = TYMED_HGLOBAL;
        return S_OK;
    });
}

STDMETHODIMP PictureData::QueryGetData(FORMATETC* format) {
    return Check(format);
}

STDMETHODIMP PictureData::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
    if (!format || !canonical) return E_INVALIDARG;
    *canonical = *format;
    canonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

STDMETHODIMP PictureData::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
    return Run([&]() -> HRESULT {
        if (!formats) return E_POINTER;
        *formats = nullptr;
        if (direction != DATADIR_GET) return E_NOTIMPL;
        *formats = new FormatEnumeration({kBitmap});
        return S_OK;
    });
}

STDMETHODIMP PictureData::EnumDAdvise(IEnumSTATDATA** connections) {
    if (connections) *connections = nullptr;
    return OLE_E_ADVISENOTSUPPORTED;
}

}  // namespace mavrin2::server
