#pragma once

#include "platform/linux/automation/storage.h"
#include "platform/linux/automation/window_types.h"

// A picture as an object, which draws itself. Pictures made here have no bitmap or palette of the
// system: asking for one fails.

using OLE_HANDLE = UINT;
using OLE_XPOS_HIMETRIC = LONG;
using OLE_YPOS_HIMETRIC = LONG;
using OLE_XSIZE_HIMETRIC = LONG;
using OLE_YSIZE_HIMETRIC = LONG;

inline constexpr SHORT PICTYPE_BITMAP = 1;

struct IPicture : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE get_Handle(OLE_HANDLE* handle) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_hPal(OLE_HANDLE* palette) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Type(SHORT* type) = 0;
    // In hundredths of a millimetre.
    virtual HRESULT STDMETHODCALLTYPE get_Width(OLE_XSIZE_HIMETRIC* width) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Height(OLE_YSIZE_HIMETRIC* height) = 0;
    // Draws a part of the picture, whose y counts upwards, into a rectangle of the target.
    virtual HRESULT STDMETHODCALLTYPE Render(HDC target, LONG x, LONG y, LONG width, LONG height,
                                             OLE_XPOS_HIMETRIC sourceX, OLE_YPOS_HIMETRIC sourceY,
                                             OLE_XSIZE_HIMETRIC sourceWidth,
                                             OLE_YSIZE_HIMETRIC sourceHeight, LPCRECT bounds) = 0;
    // NOLINTNEXTLINE(readability-identifier-naming): its published name.
    virtual HRESULT STDMETHODCALLTYPE set_hPal(OLE_HANDLE palette) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CurDC(HDC* context) = 0;
    virtual HRESULT STDMETHODCALLTYPE SelectPicture(HDC context, HDC* previous,
                                                    OLE_HANDLE* bitmap) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_KeepOriginalFormat(BOOL* keep) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_KeepOriginalFormat(BOOL keep) = 0;
    virtual HRESULT STDMETHODCALLTYPE PictureChanged() = 0;
    virtual HRESULT STDMETHODCALLTYPE SaveAsFile(IStream* stream, BOOL saveMemoryCopy,
                                                 LONG* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Attributes(DWORD* attributes) = 0;
};

// The same object for scripts; those made here have no members for them.
struct IPictureDisp : public IDispatch {};

#pragma GCC visibility push(default)
extern "C" {
extern const IID IID_IPicture;
extern const IID IID_IPictureDisp;
}
#pragma GCC visibility pop
