#pragma once

#include "platform/linux/automation/data_transfer.h"

// An object in a container's document: its place, its size, its verbs and its picture.

struct IBindCtx;
struct IEnumUnknown;
struct IOleClientSite;

enum OLEGETMONIKER {
    OLEGETMONIKER_ONLYIFTHERE = 1,
    OLEGETMONIKER_FORCEASSIGN = 2,
    OLEGETMONIKER_UNASSIGN = 3,
    OLEGETMONIKER_TEMPFORUSER = 4
};
enum OLEWHICHMK { OLEWHICHMK_CONTAINER = 1, OLEWHICHMK_OBJREL = 2, OLEWHICHMK_OBJFULL = 3 };
enum USERCLASSTYPE { USERCLASSTYPE_FULL = 1, USERCLASSTYPE_SHORT = 2, USERCLASSTYPE_APPNAME = 3 };
enum OLECLOSE { OLECLOSE_SAVEIFDIRTY = 0, OLECLOSE_NOSAVE = 1, OLECLOSE_PROMPTSAVE = 2 };
enum OLEMISC {
    OLEMISC_RECOMPOSEONRESIZE = 0x1,
    OLEMISC_CANTLINKINSIDE = 0x10,
    OLEMISC_INSIDEOUT = 0x80,
    OLEMISC_ACTIVATEWHENVISIBLE = 0x100,
    OLEMISC_SETCLIENTSITEFIRST = 0x20000
};

inline constexpr LONG OLEIVERB_PRIMARY = 0;
inline constexpr LONG OLEIVERB_SHOW = -1;
inline constexpr LONG OLEIVERB_OPEN = -2;
inline constexpr LONG OLEIVERB_HIDE = -3;
inline constexpr LONG OLEIVERB_UIACTIVATE = -4;
inline constexpr LONG OLEIVERB_INPLACEACTIVATE = -5;
inline constexpr LONG OLEIVERB_DISCARDUNDOSTATE = -6;
inline constexpr LONG OLEIVERB_PROPERTIES = -7;

struct OLEVERB {
    LONG lVerb;
    LPOLESTR lpszVerbName;
    DWORD fuFlags;
    DWORD grfAttribs;
};
using LPOLEVERB = OLEVERB*;

struct IEnumOLEVERB : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, OLEVERB* elements, ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumOLEVERB** copy) = 0;
};

struct IOleObject : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR application, LPCOLESTR object) = 0;
    virtual HRESULT STDMETHODCALLTYPE Close(DWORD saveOption) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) = 0;
    virtual HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, BOOL creation,
                                                   DWORD reserved) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) = 0;
    virtual HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* activeSite,
                                             LONG index, HWND parent, LPCRECT position) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) = 0;
    virtual HRESULT STDMETHODCALLTYPE Update() = 0;
    virtual HRESULT STDMETHODCALLTYPE IsUpToDate() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* clsid) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** connections) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) = 0;
};

struct IParseDisplayName : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE ParseDisplayName(IBindCtx* context, LPOLESTR name,
                                                       ULONG* eaten, IMoniker** moniker) = 0;
};

struct IOleContainer : public IParseDisplayName {
    virtual HRESULT STDMETHODCALLTYPE EnumObjects(DWORD flags, IEnumUnknown** objects) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockContainer(BOOL lock) = 0;
};

struct IOleClientSite : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SaveObject() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) = 0;
    virtual HRESULT STDMETHODCALLTYPE ShowObject() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL show) = 0;
    virtual HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() = 0;
};

struct IViewObject : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo,
                                           DVTARGETDEVICE* device, HDC deviceContext, HDC target,
                                           LPCRECTL bounds, LPCRECTL windowBounds,
                                           BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR),
                                           ULONG_PTR goOnArgument) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspectInfo,
                                                  DVTARGETDEVICE* device, HDC deviceContext,
                                                  LOGPALETTE** colors) = 0;
    virtual HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* aspectInfo,
                                             DWORD* freeze) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unfreeze(DWORD freeze) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags,
                                                IAdviseSink** sink) = 0;
};

struct IViewObject2 : public IViewObject {
    virtual HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                                                SIZEL* size) = 0;
};

enum VIEWSTATUS { VIEWSTATUS_OPAQUE = 1, VIEWSTATUS_SOLIDBKGND = 2, VIEWSTATUS_DVASPECTOPAQUE = 4 };
enum HITRESULT {
    HITRESULT_OUTSIDE = 0,
    HITRESULT_TRANSPARENT = 1,
    HITRESULT_CLOSE = 2,
    HITRESULT_HIT = 3
};
enum DVEXTENTMODE { DVEXTENT_CONTENT = 0, DVEXTENT_INTEGRAL = 1 };

struct DVEXTENTINFO {
    ULONG cb;
    DWORD dwExtentMode;
    SIZEL sizelProposed;
};

struct IViewObjectEx : public IViewObject2 {
    virtual HRESULT STDMETHODCALLTYPE GetRect(DWORD aspect, RECTL* rectangle) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetViewStatus(DWORD* status) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT place,
                                                    LONG closeHint, DWORD* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT place,
                                                   LONG closeHint, DWORD* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetNaturalExtent(DWORD aspect, LONG index,
                                                       DVTARGETDEVICE* device, HDC deviceContext,
                                                       DVEXTENTINFO* info, SIZEL* size) = 0;
};

extern "C" {
MAVRIN2_AUTOMATION_API extern const IID IID_IEnumOLEVERB;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleObject;
MAVRIN2_AUTOMATION_API extern const IID IID_IParseDisplayName;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleContainer;
MAVRIN2_AUTOMATION_API extern const IID IID_IOleClientSite;
MAVRIN2_AUTOMATION_API extern const IID IID_IViewObject;
MAVRIN2_AUTOMATION_API extern const IID IID_IViewObject2;
MAVRIN2_AUTOMATION_API extern const IID IID_IViewObjectEx;
}
