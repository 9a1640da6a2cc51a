#pragma once

#include "platform/linux/automation/embedding.h"

// An object that is active in place, in a window inside its container's.

struct IDropTarget;
struct IOleInPlaceActiveObject;

using HOLEMENU = HGLOBAL;
using BORDERWIDTHS = RECT;
using LPBORDERWIDTHS = BORDERWIDTHS*;
using LPCBORDERWIDTHS = const BORDERWIDTHS*;

struct OLEINPLACEFRAMEINFO {
    UINT cb;
    BOOL fMDIApp;
    HWND hwndFrame;
    HACCEL haccel;
    UINT cAccelEntries;
};
using LPOLEINPLACEFRAMEINFO = OLEINPLACEFRAMEINFO*;

struct OLEMENUGROUPWIDTHS {
    LONG width[6];
};
using LPOLEMENUGROUPWIDTHS = OLEMENUGROUPWIDTHS*;

struct IOleWindow : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) = 0;
    virtual HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) = 0;
};

struct IOleInPlaceObject : public IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE InPlaceDeactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE UIDeactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) = 0;
    virtual HRESULT STDMETHODCALLTYPE ReactivateAndUndo() = 0;
};

struct IOleInPlaceObjectWindowless : public IOleInPlaceObject {
    virtual HRESULT STDMETHODCALLTYPE OnWindowMessage(UINT message, WPARAM wParam, LPARAM lParam,
                                                      LRESULT* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDropTarget(IDropTarget** target) = 0;
};

struct IOleInPlaceUIWindow : public IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE GetBorder(RECT* border) = 0;
    virtual HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS widths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object,
                                                      LPCOLESTR name) = 0;
};

struct IOleInPlaceFrame : public IOleInPlaceUIWindow {
    virtual HRESULT STDMETHODCALLTYPE InsertMenus(HMENU menu, OLEMENUGROUPWIDTHS* widths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetMenu(HMENU menu, HOLEMENU descriptor,
                                              HWND activeObject) = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU menu) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) = 0;
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, WORD id) = 0;
};

struct IOleInPlaceActiveObject : public IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL activate) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL activate) = 0;
    virtual HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window,
                                                   BOOL frameWindow) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) = 0;
};

struct IOleInPlaceSite : public IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE CanInPlaceActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnInPlaceActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnUIActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                                       IOleInPlaceUIWindow** document,
                                                       RECT* position, RECT* clip,
                                                       OLEINPLACEFRAMEINFO* info) = 0;
    virtual HRESULT STDMETHODCALLTYPE Scroll(SIZE extent) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL undoable) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE DiscardUndoState() = 0;
    virtual HRESULT STDMETHODCALLTYPE DeactivateAndUndo() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) = 0;
};

extern "C" {
MAVRIN2_AUTOMATION_API extern const IID IID_IOleWindow;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleInPlaceObject;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleInPlaceObjectWindowless;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleInPlaceUIWindow;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleInPlaceFrame;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleInPlaceActiveObject;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleInPlaceSite;
}
