#pragma once

#include "platform/linux/automation/type_records.h"

// No interface has a virtual destructor: it would take a slot of the published table.

struct ITypeInfo;
struct ITypeLib;
struct ITypeComp;
struct IConnectionPointContainer;
struct IEnumConnections;

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};
using LPUNKNOWN = IUnknown*;

struct IClassFactory : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid,
                                                     void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};
using LPCLASSFACTORY = IClassFactory*;

struct IDispatch : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID lcid, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                                    LCID lcid, DISPID* ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID lcid, WORD flags,
                                             DISPPARAMS* params, VARIANT* result,
                                             EXCEPINFO* exception, UINT* badArgument) = 0;
};
using LPDISPATCH = IDispatch*;

union BINDPTR {
    FUNCDESC* lpfuncdesc;
    VARDESC* lpvardesc;
    ITypeComp* lptcomp;
};
using LPBINDPTR = BINDPTR*;

struct ITypeComp : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** info,
                                           DESCKIND* kind, BINDPTR* found) = 0;
    virtual HRESULT STDMETHODCALLTYPE BindType(LPOLESTR name, ULONG hash, ITypeInfo** info,
                                               ITypeComp** comp) = 0;
};
using LPTYPECOMP = ITypeComp*;

struct ITypeInfo : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** comp) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** function) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVarDesc(UINT index, VARDESC** variable) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetNames(MEMBERID member, BSTR* names, UINT room,
                                               UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT index, HREFTYPE* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT index, INT* flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count,
                                                    MEMBERID* members) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(PVOID instance, MEMBERID member, WORD flags,
                                             DISPPARAMS* params, VARIANT* result,
                                             EXCEPINFO* exception, UINT* badArgument) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID member, BSTR* name, BSTR* text,
                                                       DWORD* helpContext, BSTR* helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID member, INVOKEKIND kind, BSTR* module,
                                                  BSTR* name, WORD* ordinal) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE type, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID member, INVOKEKIND kind,
                                                      PVOID* address) = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid,
                                                     PVOID* object) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMops(MEMBERID member, BSTR* mops) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib** library, UINT* index) = 0;
    virtual void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attributes) = 0;
    virtual void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* function) = 0;
    virtual void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC* variable) = 0;
};
using LPTYPEINFO = ITypeInfo*;

struct ITypeLib : public IUnknown {
    virtual UINT STDMETHODCALLTYPE GetTypeInfoCount() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoType(UINT index, TYPEKIND* kind) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoOfGuid(REFGUID guid, ITypeInfo** info) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetLibAttr(TLIBATTR** attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** comp) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDocumentation(INT index, BSTR* name, BSTR* text,
                                                       DWORD* helpContext, BSTR* helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsName(LPOLESTR name, ULONG hash, BOOL* found) = 0;
    virtual HRESULT STDMETHODCALLTYPE FindName(LPOLESTR name, ULONG hash, ITypeInfo** infos,
                                               MEMBERID* members, USHORT* count) = 0;
    virtual void STDMETHODCALLTYPE ReleaseTLibAttr(TLIBATTR* attributes) = 0;
};
using LPTYPELIB = ITypeLib*;

struct IErrorInfo : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSource(BSTR* source) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* helpContext) = 0;
};
using LPERRORINFO = IErrorInfo*;

struct ICreateErrorInfo : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetGUID(REFGUID guid) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSource(LPOLESTR source) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDescription(LPOLESTR description) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHelpFile(LPOLESTR helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHelpContext(DWORD helpContext) = 0;
};

struct ISupportErrorInfo : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) = 0;
};

struct CONNECTDATA {
    IUnknown* pUnk;
    DWORD dwCookie;
};
using LPCONNECTDATA = CONNECTDATA*;

struct IConnectionPoint : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) = 0;
    virtual HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) = 0;
    virtual HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) = 0;
};
using LPCONNECTIONPOINT = IConnectionPoint*;

struct IEnumConnectionPoints : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, LPCONNECTIONPOINT* points,
                                           ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** copy) = 0;
};
using LPENUMCONNECTIONPOINTS = IEnumConnectionPoints*;

struct IEnumConnections : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, LPCONNECTDATA connections,
                                           ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumConnections** copy) = 0;
};
using LPENUMCONNECTIONS = IEnumConnections*;

struct IConnectionPointContainer : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) = 0;
    virtual HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) = 0;
};
using LPCONNECTIONPOINTCONTAINER = IConnectionPointContainer*;

enum GUIDKIND { GUIDKIND_DEFAULT_SOURCE_DISP_IID = 1 };

struct IProvideClassInfo : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) = 0;
};

struct IProvideClassInfo2 : public IProvideClassInfo {
    virtual HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) = 0;
};

struct IPropertyNotifySink : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE OnChanged(DISPID property) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID property) = 0;
};

extern "C" {
MAVRIN2_AUTOMATION_API extern const GUID GUID_NULL;
MAVRIN2_AUTOMATION_API extern const IID IID_IUnknown;
MAVRIN2_AUTOMATION_API extern const IID IID_IClassFactory;
MAVRIN2_AUTOMATION_API extern const IID IID_IDispatch;
MAVRIN2_AUTOMATION_API extern const IID IID_ITypeComp;
MAVRIN2_AUTOMATION_API extern const IID IID_ITypeInfo;
MAVRIN2_AUTOMATION_API extern const IID IID_ITypeLib;
MAVRIN2_AUTOMATION_API extern const IID IID_IErrorInfo;
MAVRIN2_AUTOMATION_API extern const IID IID_ICreateErrorInfo;
MAVRIN2_AUTOMATION_API extern const IID IID_ISupportErrorInfo;
MAVRIN2_AUTOMATION_API extern const IID IID_IConnectionPoint;
MAVRIN2_AUTOMATION_API extern const IID IID_IConnectionPointContainer;
MAVRIN2_AUTOMATION_API extern const IID IID_IEnumConnectionPoints;
MAVRIN2_AUTOMATION_API extern const IID IID_IEnumConnections;
MAVRIN2_AUTOMATION_API extern const IID IID_IProvideClassInfo;
MAVRIN2_AUTOMATION_API extern const IID IID_IProvideClassInfo2;
MAVRIN2_AUTOMATION_API extern const IID IID_IPropertyNotifySink;
}
#define IID_NULL GUID_NULL
#define CLSID_NULL GUID_NULL
