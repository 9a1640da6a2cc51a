#pragma once

#include "platform/linux/automation/interfaces.h"

// Where a container keeps an object's state, and how an object is asked to read and write it.

struct IEnumSTATSTG;

union LARGE_INTEGER {
    __extension__ struct {
        DWORD LowPart;
        LONG HighPart;
    };
    LONGLONG QuadPart;
};
union ULARGE_INTEGER {
    __extension__ struct {
        DWORD LowPart;
        DWORD HighPart;
    };
    ULONGLONG QuadPart;
};

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

enum STGTY { STGTY_STORAGE = 1, STGTY_STREAM = 2 };
enum STREAM_SEEK { STREAM_SEEK_SET = 0, STREAM_SEEK_CUR = 1, STREAM_SEEK_END = 2 };

struct STATSTG {
    LPOLESTR pwcsName;
    DWORD type;
    ULARGE_INTEGER cbSize;
    FILETIME mtime;
    FILETIME ctime;
    FILETIME atime;
    DWORD grfMode;
    DWORD grfLocksSupported;
    CLSID clsid;
    DWORD grfStateBits;
    DWORD reserved;
};

inline constexpr DWORD STGM_READ = 0x0;
inline constexpr DWORD STGM_WRITE = 0x1;
inline constexpr DWORD STGM_READWRITE = 0x2;
inline constexpr DWORD STGM_SHARE_EXCLUSIVE = 0x10;
inline constexpr DWORD STGM_CREATE = 0x1000;

// Names to leave out, ended by a null.
using SNB = LPOLESTR*;

struct ISequentialStream : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Read(void* buffer, ULONG size, ULONG* read) = 0;
    virtual HRESULT STDMETHODCALLTYPE Write(const void* bytes, ULONG size, ULONG* written) = 0;
};

struct IStream : public ISequentialStream {
    virtual HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin,
                                           ULARGE_INTEGER* position) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER size) = 0;
    virtual HRESULT STDMETHODCALLTYPE CopyTo(IStream* target, ULARGE_INTEGER size,
                                             ULARGE_INTEGER* read, ULARGE_INTEGER* written) = 0;
    virtual HRESULT STDMETHODCALLTYPE Commit(DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Revert() = 0;
    virtual HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER offset, ULARGE_INTEGER size,
                                                 DWORD kind) = 0;
    virtual HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER offset, ULARGE_INTEGER size,
                                                   DWORD kind) = 0;
    virtual HRESULT STDMETHODCALLTYPE Stat(STATSTG* statistics, DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IStream** copy) = 0;
};
using LPSTREAM = IStream*;

struct IStorage : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateStream(const OLECHAR* name, DWORD mode, DWORD reserved1,
                                                   DWORD reserved2, IStream** stream) = 0;
    virtual HRESULT STDMETHODCALLTYPE OpenStream(const OLECHAR* name, void* reserved1, DWORD mode,
                                                 DWORD reserved2, IStream** stream) = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateStorage(const OLECHAR* name, DWORD mode,
                                                    DWORD reserved1, DWORD reserved2,
                                                    IStorage** storage) = 0;
    virtual HRESULT STDMETHODCALLTYPE OpenStorage(const OLECHAR* name, IStorage* priority,
                                                  DWORD mode, SNB exclude, DWORD reserved,
                                                  IStorage** storage) = 0;
    virtual HRESULT STDMETHODCALLTYPE CopyTo(DWORD excludedCount, const IID* excludedIids,
                                             SNB exclude, IStorage* target) = 0;
    virtual HRESULT STDMETHODCALLTYPE MoveElementTo(const OLECHAR* name, IStorage* target,
                                                    const OLECHAR* newName, DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Commit(DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Revert() = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumElements(DWORD reserved1, void* reserved2,
                                                   DWORD reserved3, IEnumSTATSTG** elements) = 0;
    virtual HRESULT STDMETHODCALLTYPE DestroyElement(const OLECHAR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE RenameElement(const OLECHAR* name,
                                                    const OLECHAR* newName) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetElementTimes(const OLECHAR* name, const FILETIME* created,
                                                      const FILETIME* accessed,
                                                      const FILETIME* modified) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetClass(REFCLSID clsid) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetStateBits(DWORD bits, DWORD mask) = 0;
    virtual HRESULT STDMETHODCALLTYPE Stat(STATSTG* statistics, DWORD flags) = 0;
};

struct IPersist : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetClassID(CLSID* clsid) = 0;
};

struct IPersistStreamInit : public IPersist {
    virtual HRESULT STDMETHODCALLTYPE IsDirty() = 0;
    virtual HRESULT STDMETHODCALLTYPE Load(IStream* stream) = 0;
    virtual HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) = 0;
    virtual HRESULT STDMETHODCALLTYPE InitNew() = 0;
};

struct IPersistStorage : public IPersist {
    virtual HRESULT STDMETHODCALLTYPE IsDirty() = 0;
    virtual HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) = 0;
    virtual HRESULT STDMETHODCALLTYPE Load(IStorage* storage) = 0;
    virtual HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL sameAsLoad) = 0;
    virtual HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) = 0;
    virtual HRESULT STDMETHODCALLTYPE HandsOffStorage() = 0;
};

extern "C" {
MAVRIN2_AUTOMATION_API extern const IID IID_ISequentialStream;
MAVRIN2_AUTOMATION_API extern const IID IID_IStream;
MAVRIN2_AUTOMATION_API extern const IID IID_IStorage;
MAVRIN2_AUTOMATION_API extern const IID IID_IPersist;
MAVRIN2_AUTOMATION_API extern const IID IID_IPersistStreamInit;
MAVRIN2_AUTOMATION_API extern const IID IID_IPersistStorage;
}
