#pragma once

#include "platform/linux/automation/storage.h"
#include "platform/linux/automation/window_types.h"

// Data that an object renders on request, and the sinks that hear of its changes.

struct IMoniker;

// A block of memory that one side allocates and another frees.
struct HGLOBAL__;
using HGLOBAL = HGLOBAL__*;
struct HBITMAP__;
using HBITMAP = HBITMAP__*;
struct HENHMETAFILE__;
using HENHMETAFILE = HENHMETAFILE__*;
using HMETAFILEPICT = HGLOBAL;

using CLIPFORMAT = WORD;
inline constexpr CLIPFORMAT CF_DIB = 8;

enum TYMED {
    TYMED_NULL = 0,
    TYMED_HGLOBAL = 1,
    TYMED_FILE = 2,
    TYMED_ISTREAM = 4,
    TYMED_ISTORAGE = 8,
    TYMED_GDI = 16,
    TYMED_MFPICT = 32,
    TYMED_ENHMF = 64
};
enum DATADIR { DATADIR_GET = 1, DATADIR_SET = 2 };
enum ADVF { ADVF_NODATA = 1, ADVF_PRIMEFIRST = 2, ADVF_ONLYONCE = 4, ADVF_DATAONSTOP = 64 };

struct FORMATETC {
    CLIPFORMAT cfFormat;
    DVTARGETDEVICE* ptd;
    DWORD dwAspect;
    LONG lindex;
    DWORD tymed;
};
using LPFORMATETC = FORMATETC*;

struct STGMEDIUM {
    DWORD tymed;
    __extension__ union {
        HBITMAP hBitmap;
        HMETAFILEPICT hMetaFilePict;
        HENHMETAFILE hEnhMetaFile;
        HGLOBAL hGlobal;
        LPOLESTR lpszFileName;
        IStream* pstm;
        IStorage* pstg;
    };
    IUnknown* pUnkForRelease;
};
using LPSTGMEDIUM = STGMEDIUM*;

struct IAdviseSink : public IUnknown {
    virtual void STDMETHODCALLTYPE OnDataChange(FORMATETC* format, STGMEDIUM* medium) = 0;
    virtual void STDMETHODCALLTYPE OnViewChange(DWORD aspect, LONG index) = 0;
    virtual void STDMETHODCALLTYPE OnRename(IMoniker* name) = 0;
    virtual void STDMETHODCALLTYPE OnSave() = 0;
    virtual void STDMETHODCALLTYPE OnClose() = 0;
};
using LPADVISESINK = IAdviseSink*;

struct IAdviseSinkEx : public IAdviseSink {
    virtual void STDMETHODCALLTYPE OnViewStatusChange(DWORD status) = 0;
};

struct STATDATA {
    FORMATETC formatetc;
    DWORD advf;
    IAdviseSink* pAdvSink;
    DWORD dwConnection;
};
using LPSTATDATA = STATDATA*;

struct IEnumSTATDATA : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, STATDATA* elements, ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumSTATDATA** copy) = 0;
};

struct IEnumFORMATETC : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, FORMATETC* elements, ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumFORMATETC** copy) = 0;
};

struct IDataObject : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format,
                                                            FORMATETC* canonical) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium,
                                              BOOL release) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) = 0;
    virtual HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                              DWORD* connection) = 0;
    virtual HRESULT STDMETHODCALLTYPE DUnadvise(DWORD connection) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** connections) = 0;
};

inline constexpr UINT GMEM_FIXED = 0x0000;
inline constexpr UINT GMEM_MOVEABLE = 0x0002;
inline constexpr UINT GMEM_ZEROINIT = 0x0040;

extern "C" {
MAVRIN2_AUTOMATION_API extern const IID IID_IAdviseSink;
MAVRIN2_AUTOMATION_API extern const IID IID_IAdviseSinkEx;
MAVRIN2_AUTOMATION_API extern const IID IID_IEnumSTATDATA;
MAVRIN2_AUTOMATION_API extern const IID IID_IEnumFORMATETC;
MAVRIN2_AUTOMATION_API extern const IID IID_IDataObject;

// Null without memory. A block stays where it is; locking only gives its address.
MAVRIN2_AUTOMATION_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T size);
MAVRIN2_AUTOMATION_API SIZE_T GlobalSize(HGLOBAL block);
MAVRIN2_AUTOMATION_API LPVOID GlobalLock(HGLOBAL block);
MAVRIN2_AUTOMATION_API BOOL GlobalUnlock(HGLOBAL block);
MAVRIN2_AUTOMATION_API HGLOBAL GlobalFree(HGLOBAL block);

// Frees what the medium holds in a way of its kind.
MAVRIN2_AUTOMATION_API void ReleaseStgMedium(STGMEDIUM* medium);
}
