#pragma once

#include "platform/linux/automation/in_place.h"

// What a control and the site of a form say to each other beyond embedding.

struct IBindHost;
struct IFont;
struct IOleUndoManager;
struct IServiceProvider;

struct CONTROLINFO {
    ULONG cb;
    HACCEL hAccel;
    USHORT cAccel;
    DWORD dwFlags;
};
using LPCONTROLINFO = CONTROLINFO*;

struct IOleControl : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID property) = 0;
    virtual HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) = 0;
};

struct IOleControlSite : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE OnControlInfoChanged() = 0;
    virtual HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL lock) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) = 0;
    virtual HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container,
                                                      DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnFocus(BOOL gotFocus) = 0;
    virtual HRESULT STDMETHODCALLTYPE ShowPropertyFrame() = 0;
};

// A counted array from CoTaskMemAlloc.
struct CAUUID {
    ULONG cElems;
    GUID* pElems;
};

struct ISpecifyPropertyPages : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) = 0;
};

struct QACONTAINER {
    ULONG cbSize;
    IOleClientSite* pClientSite;
    IAdviseSinkEx* pAdviseSink;
    IPropertyNotifySink* pPropertyNotifySink;
    IUnknown* pUnkEventSink;
    DWORD dwAmbientFlags;
    OLE_COLOR colorFore;
    OLE_COLOR colorBack;
    IFont* pFont;
    IOleUndoManager* pUndoMgr;
    DWORD dwAppearance;
    LONG lcid;
    HPALETTE hpal;
    IBindHost* pBindHost;
    IOleControlSite* pOleControlSite;
    IServiceProvider* pServiceProvider;
};

struct QACONTROL {
    ULONG cbSize;
    DWORD dwMiscStatus;
    DWORD dwViewStatus;
    DWORD dwEventCookie;
    DWORD dwPropNotifyCookie;
    DWORD dwPointerActivationPolicy;
};

struct IQuickActivate : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetContentExtent(SIZEL* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetContentExtent(SIZEL* size) = 0;
};

extern "C" {
MAVRIN2_AUTOMATION_API extern const IID IID_IOleControl;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleControlSite;
MAVRIN2_AUTOMATION_API extern const IID IID_ISpecifyPropertyPages;
MAVRIN2_AUTOMATION_API extern const IID IID_IQuickActivate;
}
