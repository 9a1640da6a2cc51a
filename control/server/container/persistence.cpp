#include "control/server/container/persistence.h"

#include <array>
#include <limits>

#include "control/interfaces/identifiers.h"

namespace mavrin2::server {
namespace {

using automation::ComPtr;

constexpr std::uint32_t kFormat = 0x900;
constexpr const OLECHAR* kStreamName = OLESTR("Contents");

// Numbers of 32 bits, the lowest byte first.
constexpr std::size_t kNumberSize = 4;

std::uint32_t ReadNumber(IStream& stream) {
    std::array<std::uint8_t, kNumberSize> bytes{};
    ULONG read = 0;
    automation::ThrowIfFailed(stream.Read(bytes.data(), kNumberSize, &read));
    if (read != kNumberSize) throw automation::StatusError{E_FAIL};
    std::uint32_t number = 0;
    for (ULONG i = 0; i < kNumberSize; ++i)
        number |= std::uint32_t{bytes[i]} << (8 * i);
    return number;
}

void Put(std::uint8_t* bytes, std::uint32_t number) {
    for (ULONG i = 0; i < kNumberSize; ++i)
        bytes[i] = static_cast<std::uint8_t>(number >> (8 * i));
}

LONG ToExtent(std::uint32_t number) {
    if (number > static_cast<std::uint32_t>(std::numeric_limits<LONG>::max()))
        throw automation::StatusError{E_FAIL};
    return static_cast<LONG>(number);
}

}  // namespace

STDMETHODIMP StreamPersistence::GetClassID(CLSID* clsid) {
    if (!clsid) return E_POINTER;
    *clsid = interfaces::CLSID_Mavrin2;
    return S_OK;
}

STDMETHODIMP StreamPersistence::IsDirty() {
    return state_.Changed ? S_OK : S_FALSE;
}

STDMETHODIMP StreamPersistence::Load(IStream* stream) {
    return Run([&]() -> HRESULT {
        if (!stream) return E_POINTER;
        // Written by a later version in an unknown format.
        if (ReadNumber(*stream) > kFormat) return E_FAIL;
        const LONG width = ToExtent(ReadNumber(*stream));
        const LONG height = ToExtent(ReadNumber(*stream));
        state_.Extent = {width, height};
        state_.Changed = false;
        return S_OK;
    });
}

STDMETHODIMP StreamPersistence::Save(IStream* stream, BOOL clearDirty) {
    return Run([&]() -> HRESULT {
        if (!stream) return E_POINTER;
        std::array<std::uint8_t, 3 * kNumberSize> bytes{};
        Put(bytes.data(), kFormat);
        Put(bytes.data() + kNumberSize, static_cast<std::uint32_t>(state_.Extent.cx));
        Put(bytes.data() + 2 * kNumberSize, static_cast<std::uint32_t>(state_.Extent.cy));
        ULONG written = 0;
        automation::ThrowIfFailed(stream->Write(bytes.data(), bytes.size(), &written));
        if (written != bytes.size()) return STG_E_MEDIUMFULL;
        if (clearDirty) state_.Changed = false;
        return S_OK;
    });
}

STDMETHODIMP StreamPersistence::GetSizeMax(ULARGE_INTEGER* size) {
    if (!size) return E_POINTER;
    size->QuadPart = 3 * kNumberSize;
    return S_OK;
}

STDMETHODIMP StreamPersistence::InitNew() {
    state_.Extent = kDefaultExtent;
    state_.Changed = false;
    return S_OK;
}

STDMETHODIMP StoragePersistence::Load(IStorage* storage) {
    return Run([&]() -> HRESULT {
        if (!storage) return E_POINTER;
        ComPtr<IStream> stream;
        automation::ThrowIfFailed(storage->OpenStream(
            kStreamName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.Put()));
        return stream_.Load(stream.Get());
    });
}

STDMETHODIMP StoragePersistence::Save(IStorage* storage, BOOL sameAsLoad) {
    return Run([&]() -> HRESULT {
        if (!storage) return E_POINTER;
        ComPtr<IStream> stream;
        automation::ThrowIfFailed(storage->CreateStream(
            kStreamName, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0, stream.Put()));
        return stream_.Save(stream.Get(), sameAsLoad);
    });
}

STDMETHODIMP StoragePersistence::SaveCompleted(IStorage*) {
    return Run([&] { notifications_.TellSaved(); });
}

}  // namespace mavrin2::server
