#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/com_fakes.h"

namespace mavrin2::tests {

// A stream in memory, with the calls that a control makes.
class MemoryStream final : public automation::Counted<IStream> {
public:
    std::vector<std::uint8_t> Bytes;
    std::size_t At = 0;
    std::size_t Room = 1000;  // in bytes

    STDMETHODIMP Read(void* buffer, ULONG size, ULONG* read) override {
        *read = static_cast<ULONG>(std::min<std::size_t>(size, Bytes.size() - At));
        std::copy_n(Bytes.data() + At, *read, static_cast<std::uint8_t*>(buffer));
        At += *read;
        return *read == size ? S_OK : S_FALSE;
    }
    STDMETHODIMP Write(const void* bytes, ULONG size, ULONG* written) override {
        *written = static_cast<ULONG>(std::min<std::size_t>(size, Room - Bytes.size()));
        const auto* first = static_cast<const std::uint8_t*>(bytes);
        Bytes.insert(Bytes.end(), first, first + *written);
        return S_OK;
    }
    STDMETHODIMP Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHODIMP SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
    STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Revert() override { return E_NOTIMPL; }
    STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IStream**) override { return E_NOTIMPL; }
};

// A storage with room for one stream; belongs to the test.
class MemoryStorage final : public Fake<IStorage> {
public:
    std::basic_string<OLECHAR> Name;
    automation::ComPtr<MemoryStream> Stream;

    STDMETHODIMP CreateStream(const OLECHAR* name, DWORD mode, DWORD, DWORD,
                              IStream** stream) override {
        if ((mode & STGM_CREATE) == 0 && Stream) return STG_E_ACCESSDENIED;
        Name = name;
        Stream = automation::MakeCounted<MemoryStream>();
        return OpenStream(name, nullptr, mode, 0, stream);
    }
    STDMETHODIMP OpenStream(const OLECHAR* name, void*, DWORD mode, DWORD,
                            IStream** stream) override {
        // The one way of sharing that a stream of a storage may be opened with.
        if ((mode & STGM_SHARE_EXCLUSIVE) == 0) return STG_E_INVALIDFUNCTION;
        if (!Stream || Name != name) return STG_E_FILENOTFOUND;
        Stream->At = 0;
        *stream = automation::ComPtr<IStream>(Stream.Get()).Detach();
        return S_OK;
    }
    STDMETHODIMP CreateStorage(const OLECHAR*, DWORD, DWORD, DWORD, IStorage**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP OpenStorage(const OLECHAR*, IStorage*, DWORD, SNB, DWORD, IStorage**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP CopyTo(DWORD, const IID*, SNB, IStorage*) override { return E_NOTIMPL; }
    STDMETHODIMP MoveElementTo(const OLECHAR*, IStorage*, const OLECHAR*, DWORD) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Commit(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Revert() override { return E_NOTIMPL; }
    STDMETHODIMP EnumElements(DWORD, void*, DWORD, IEnumSTATSTG**) override { return E_NOTIMPL; }
    STDMETHODIMP DestroyElement(const OLECHAR*) override { return E_NOTIMPL; }
    STDMETHODIMP RenameElement(const OLECHAR*, const OLECHAR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetElementTimes(const OLECHAR*, const FILETIME*, const FILETIME*,
                                 const FILETIME*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetClass(REFCLSID) override { return E_NOTIMPL; }
    STDMETHODIMP SetStateBits(DWORD, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
};

}  // namespace mavrin2::tests
