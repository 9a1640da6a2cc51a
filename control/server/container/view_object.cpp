#include "control/server/container/view_object.h"

#include "control/server/container/measures.h"

namespace mavrin2::server {

using automation::ComPtr;

STDMETHODIMP ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target,
                              LPCRECTL bounds, LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                              ULONG_PTR) {
    return Run([&]() -> HRESULT {
        if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
        if (!target || !bounds) return E_INVALIDARG;
        if (!state_.Paint) return VIEW_E_DRAW;
        const view::Rectangle pixels = PictureBounds(platform::PixelsOf(target, *bounds));
        const auto drawing = platform::TargetOf(target);
        state_.Paint(*drawing, pixels, RowsInside(drawing->Clip(), pixels));
        activation_.RepaintWindow();
        return S_OK;
    });
}

STDMETHODIMP ViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                     LOGPALETTE** colors) {
    if (colors) *colors = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    return Run([&] { notifications_.SetViewSink({aspects, flags, ComPtr<IAdviseSink>(sink)}); });
}

STDMETHODIMP ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    const Notifications::ViewSink& view = notifications_.View();
    if (aspects) *aspects = view.Aspects;
    if (flags) *flags = view.Flags;
    if (sink) *sink = ComPtr<IAdviseSink>(view.Sink).Detach();
    return S_OK;
}

STDMETHODIMP ViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* size) {
    if (!size) return E_POINTER;
    *size = {};
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *size = state_.Extent;
    return S_OK;
}

STDMETHODIMP ViewObject::GetViewStatus(DWORD* status) {
    if (!status) return E_POINTER;
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

STDMETHODIMP ViewObject::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT place, LONG,
                                       DWORD* result) {
    if (!result || !bounds) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return E_FAIL;
    const bool inside = place.x >= bounds->left && place.x < bounds->right &&
                        place.y >= bounds->top && place.y < bounds->bottom;
    *result = inside ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP ViewObject::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT place, LONG,
                                      DWORD* result) {
    if (!result || !bounds || !place) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return E_FAIL;
    const bool meets = place->left < bounds->right && place->right > bounds->left &&
                       place->top < bounds->bottom && place->bottom > bounds->top;
    *result = meets ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP ViewObject::GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC,
                                          DVEXTENTINFO* info, SIZEL* size) {
    if (!info || !size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    // Whatever size a container proposes is as good as any other.
    *size = info->dwExtentMode == DVEXTENT_CONTENT ? state_.Extent : info->sizelProposed;
    return S_OK;
}

}  // namespace mavrin2::server
