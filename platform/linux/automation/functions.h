#pragma once

#include "platform/linux/automation/interfaces.h"

inline constexpr USHORT VARIANT_NOVALUEPROP = 0x01;
inline constexpr USHORT VARIANT_ALPHABOOL = 0x02;
inline constexpr USHORT VARIANT_NOUSEROVERRIDE = 0x04;
inline constexpr USHORT VARIANT_LOCALBOOL = 0x10;

enum CLSCTX {
    CLSCTX_INPROC_SERVER = 0x1,
    CLSCTX_INPROC_HANDLER = 0x2,
    CLSCTX_LOCAL_SERVER = 0x4,
    CLSCTX_REMOTE_SERVER = 0x10
};
inline constexpr DWORD CLSCTX_INPROC = 0x3;
inline constexpr DWORD CLSCTX_SERVER = 0x15;
inline constexpr DWORD CLSCTX_ALL = 0x17;

#pragma GCC visibility push(default)
extern "C" {

// Memory that one side allocates and the other frees.
LPVOID CoTaskMemAlloc(SIZE_T size);
LPVOID CoTaskMemRealloc(LPVOID block, SIZE_T size);
void CoTaskMemFree(LPVOID block);

BSTR SysAllocString(const OLECHAR* text);
// Copies `length` characters, zeros among them; with a null `text` the characters are left unset.
BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
BSTR SysAllocStringByteLen(LPCSTR bytes, UINT size);
INT SysReAllocString(BSTR* string, const OLECHAR* text);
INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length);
void SysFreeString(BSTR string);
UINT SysStringLen(BSTR string);
UINT SysStringByteLen(BSTR string);

void VariantInit(VARIANTARG* variant);
HRESULT VariantClear(VARIANTARG* variant);
HRESULT VariantCopy(VARIANTARG* target, VARIANTARG* source);
// As VariantCopy, but follows references until a value is reached.
HRESULT VariantCopyInd(VARIANT* target, VARIANTARG* source);
// `target` may be `source`; on failure `target` is as it was. Number texts have a point, whatever
// the locale.
HRESULT VariantChangeType(VARIANTARG* target, VARIANTARG* source, USHORT flags, VARTYPE type);
HRESULT VariantChangeTypeEx(VARIANTARG* target, VARIANTARG* source, LCID lcid, USHORT flags,
                            VARTYPE type);

// `position` counts from the first argument; a position that no argument has is looked for among
// the named ones.
HRESULT DispGetParam(DISPPARAMS* params, UINT position, VARTYPE type, VARIANT* result,
                     UINT* badArgument);

// Elements are zero, 16-byte aligned and in memory that no element has touched yet.
SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count);
HRESULT SafeArrayDestroy(SAFEARRAY* array);
HRESULT SafeArrayLock(SAFEARRAY* array);
HRESULT SafeArrayUnlock(SAFEARRAY* array);
HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data);
HRESULT SafeArrayUnaccessData(SAFEARRAY* array);
// Dimensions count from 1.
HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
UINT SafeArrayGetDim(SAFEARRAY* array);
UINT SafeArrayGetElemsize(SAFEARRAY* array);
HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);
// Changes the last dimension only.
HRESULT SafeArrayRedim(SAFEARRAY* array, SAFEARRAYBOUND* bound);
HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);
// Elements go in and out as copies. Going in, a string or an object is given as itself and
// everything else by its address; coming out, everything is by the address of a place for it.
HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* element);
HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* element);

// The error object of this thread; getting it takes it away.
HRESULT SetErrorInfo(ULONG reserved, IErrorInfo* error);
HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** error);
HRESULT CreateErrorInfo(ICreateErrorInfo** error);

HRESULT CLSIDFromString(LPCOLESTR text, LPCLSID clsid);
// The characters written, the zero among them; 0 when there is no room.
int StringFromGUID2(REFGUID guid, LPOLESTR text, int room);
HRESULT CLSIDFromProgID(LPCOLESTR progId, LPCLSID clsid);
HRESULT ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* progId);
HRESULT CoGetClassObject(REFCLSID clsid, DWORD context, LPVOID reserved, REFIID iid,
                         LPVOID* object);
HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid,
                         LPVOID* object);

// What a loadable module defines; the runtime itself has none of them.
HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object);
HRESULT STDAPICALLTYPE DllCanUnloadNow();
HRESULT STDAPICALLTYPE DllRegisterServer();
HRESULT STDAPICALLTYPE DllUnregisterServer();

}  // extern "C"
#pragma GCC visibility pop
