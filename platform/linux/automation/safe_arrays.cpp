#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <optional>

#include "platform/linux/automation/functions.h"
#include "platform/linux/automation/status.h"
#include "platform/linux/automation/value_types.h"

namespace automation = mavrin2::platform::automation;

namespace {

// What the contract keeps in front of a descriptor: the interface of objects, or in its last four
// bytes the type of other elements.
constexpr std::size_t PrefixSize = sizeof(IID);

std::byte* BlockOf(SAFEARRAY* array) {
    return reinterpret_cast<std::byte*>(array) - PrefixSize;
}

std::uint32_t StoredType(SAFEARRAY* array) {
    std::uint32_t type = 0;
    std::memcpy(&type, reinterpret_cast<std::byte*>(array) - sizeof(type), sizeof(type));
    return type;
}

USHORT FeaturesOf(VARTYPE type) {
    switch (type) {
        case VT_BSTR:
            return FADF_BSTR | FADF_HAVEVARTYPE;
        case VT_VARIANT:
            return FADF_VARIANT | FADF_HAVEVARTYPE;
        case VT_UNKNOWN:
            return FADF_UNKNOWN | FADF_HAVEIID;
        case VT_DISPATCH:
            return FADF_DISPATCH | FADF_HAVEIID;
        default:
            return FADF_HAVEVARTYPE;
    }
}

// How to treat the elements, also in a descriptor made by other code.
VARTYPE TypeOf(SAFEARRAY* array) {
    if ((array->fFeatures & FADF_HAVEVARTYPE) != 0) return static_cast<VARTYPE>(StoredType(array));
    if ((array->fFeatures & FADF_BSTR) != 0) return VT_BSTR;
    if ((array->fFeatures & FADF_VARIANT) != 0) return VT_VARIANT;
    if ((array->fFeatures & FADF_DISPATCH) != 0) return VT_DISPATCH;
    if ((array->fFeatures & FADF_UNKNOWN) != 0) return VT_UNKNOWN;
    return VT_EMPTY;
}

bool OwnsElements(SAFEARRAY* array) {
    constexpr USHORT owning = FADF_BSTR | FADF_VARIANT | FADF_DISPATCH | FADF_UNKNOWN;
    return (array->fFeatures & owning) != 0;
}

// The size of all elements in bytes, or nothing when no memory could hold them.
std::optional<std::size_t> DataSize(const SAFEARRAY* array) {
    std::size_t size = array->cbElements;
    for (USHORT i = 0; i < array->cDims; ++i) {
        if (__builtin_mul_overflow(size, std::size_t{array->rgsabound[i].cElements}, &size)) {
            return std::nullopt;
        }
    }
    if (size > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max())) {
        return std::nullopt;
    }
    return size;
}

SAFEARRAY* AllocateDescriptor(UINT dimensions, VARTYPE type) {
    const std::size_t size =
        PrefixSize + sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
    auto* const block = static_cast<std::byte*>(std::calloc(1, size));
    if (block == nullptr) return nullptr;
    auto* const array = new (block + PrefixSize) SAFEARRAY{};
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = FeaturesOf(type);
    array->cbElements = static_cast<ULONG>(automation::ElementSize(type));
    if ((array->fFeatures & FADF_HAVEIID) != 0) {
        std::memcpy(block, type == VT_DISPATCH ? &IID_IDispatch : &IID_IUnknown, sizeof(IID));
    } else {
        const std::uint32_t stored = type;
        std::memcpy(block + PrefixSize - sizeof(stored), &stored, sizeof(stored));
    }
    return array;
}

// Zeroed by the allocator, which leaves pages alone that come fresh from the kernel; aligned for
// any type, that is to 16 bytes. An empty array has an address as well.
bool AllocateData(SAFEARRAY* array) {
    const auto size = DataSize(array);
    if (!size) return false;
    array->pvData = std::calloc(*size != 0 ? *size : 1, 1);
    return array->pvData != nullptr;
}

void ReleaseElements(SAFEARRAY* array, std::size_t from, std::size_t end) {
    if (!OwnsElements(array)) return;
    const VARTYPE type = TypeOf(array);
    auto* const data = static_cast<std::byte*>(array->pvData);
    for (std::size_t at = from; at < end; at += array->cbElements) {
        automation::ReleaseValue(type, data + at);
    }
    std::memset(data + from, 0, end - from);
}

// Makes owners of their own out of elements that were copied bitwise; when it fails, none of them
// owns anything.
HRESULT OwnCopiedElements(SAFEARRAY* array, VARTYPE type, std::size_t size) {
    auto* const data = static_cast<std::byte*>(array->pvData);
    for (std::size_t at = 0; at < size; at += array->cbElements) {
        const HRESULT status = automation::OwnCopiedValue(type, data + at);
        if (FAILED(status)) {
            ReleaseElements(array, 0, at);
            return status;
        }
    }
    return S_OK;
}

// The memory alone, whatever the elements are.
void Free(SAFEARRAY* array) {
    std::free(array->pvData);
    std::free(BlockOf(array));
}

// The element at these indices, the first dimension's first; null when one is out of bounds.
std::byte* ElementAt(SAFEARRAY* array, const LONG* indices) {
    std::size_t index = 0;
    std::size_t stride = 1;
    for (USHORT i = 0; i < array->cDims; ++i) {
        const SAFEARRAYBOUND& bound = array->rgsabound[array->cDims - 1 - i];
        const std::int64_t place = std::int64_t{indices[i]} - bound.lLbound;
        if (place < 0 || place >= std::int64_t{bound.cElements}) return nullptr;
        index += static_cast<std::size_t>(place) * stride;
        stride *= bound.cElements;
    }
    return static_cast<std::byte*>(array->pvData) + index * array->cbElements;
}

class Locked {
public:
    explicit Locked(SAFEARRAY* array) : array_(array), status_(SafeArrayLock(array)) {}
    ~Locked() {
        if (SUCCEEDED(status_)) SafeArrayUnlock(array_);
    }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    HRESULT Status() const { return status_; }

private:
    SAFEARRAY* array_;
    HRESULT status_;
};

}  // namespace

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
    if (automation::ElementSize(type) == 0 || dimensions == 0 ||
        dimensions > std::numeric_limits<USHORT>::max() || bounds == nullptr) {
        return nullptr;
    }
    SAFEARRAY* const array = AllocateDescriptor(dimensions, type);
    if (array == nullptr) return nullptr;
    // By address and not by index: the record declares only the first of them.
    SAFEARRAYBOUND* const stored = array->rgsabound;
    for (UINT i = 0; i < dimensions; ++i)
        *(stored + i) = bounds[dimensions - 1 - i];
    if (!AllocateData(array)) {
        std::free(BlockOf(array));
        return nullptr;
    }
    return array;
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count) {
    SAFEARRAYBOUND bound = {count, lowerBound};
    return SafeArrayCreate(type, 1, &bound);
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) {
    if (array == nullptr) return S_OK;
    if (array->cLocks != 0) return DISP_E_ARRAYISLOCKED;
    if (array->pvData != nullptr) ReleaseElements(array, 0, DataSize(array).value_or(0));
    Free(array);
    return S_OK;
}

HRESULT SafeArrayLock(SAFEARRAY* array) {
    if (array == nullptr) return E_INVALIDARG;
    if (array->cLocks == std::numeric_limits<USHORT>::max()) return E_UNEXPECTED;
    ++array->cLocks;
    return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY* array) {
    if (array == nullptr) return E_INVALIDARG;
    if (array->cLocks == 0) return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data) {
    if (array == nullptr || data == nullptr) return E_INVALIDARG;
    const HRESULT status = SafeArrayLock(array);
    *data = SUCCEEDED(status) ? array->pvData : nullptr;
    return status;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array) {
    return SafeArrayUnlock(array);
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    if (array == nullptr || bound == nullptr) return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims) return DISP_E_BADINDEX;
    *bound = array->rgsabound[array->cDims - dimension].lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    if (array == nullptr || bound == nullptr) return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims) return DISP_E_BADINDEX;
    const SAFEARRAYBOUND& stored = array->rgsabound[array->cDims - dimension];
    *bound = static_cast<LONG>(std::int64_t{stored.lLbound} + stored.cElements - 1);
    return S_OK;
}

UINT SafeArrayGetDim(SAFEARRAY* array) {
    return array != nullptr ? array->cDims : 0;
}

UINT SafeArrayGetElemsize(SAFEARRAY* array) {
    return array != nullptr ? array->cbElements : 0;
}

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type) {
    if (array == nullptr || type == nullptr) return E_INVALIDARG;
    const VARTYPE found = TypeOf(array);
    if (found == VT_EMPTY) return E_INVALIDARG;
    *type = found;
    return S_OK;
}

HRESULT SafeArrayRedim(SAFEARRAY* array, SAFEARRAYBOUND* bound) {
    if (array == nullptr || bound == nullptr) return E_INVALIDARG;
    if (array->cLocks != 0 || (array->fFeatures & FADF_FIXEDSIZE) != 0) {
        return DISP_E_ARRAYISLOCKED;
    }
    const SAFEARRAYBOUND oldBound = array->rgsabound[0];
    const std::size_t oldSize = DataSize(array).value_or(0);
    array->rgsabound[0] = *bound;
    const auto newSize = DataSize(array);
    array->rgsabound[0] = oldBound;
    if (!newSize) return E_OUTOFMEMORY;

    if (*newSize < oldSize) ReleaseElements(array, *newSize, oldSize);
    if (*newSize != oldSize) {
        void* const data = std::realloc(array->pvData, *newSize != 0 ? *newSize : 1);
        if (data == nullptr) return E_OUTOFMEMORY;
        array->pvData = data;
        if (*newSize > oldSize) {
            std::memset(static_cast<std::byte*>(data) + oldSize, 0, *newSize - oldSize);
        }
    }
    array->rgsabound[0] = *bound;
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy) {
    if (copy == nullptr) return E_INVALIDARG;
    *copy = nullptr;
    if (array == nullptr) return S_OK;
    const VARTYPE type = TypeOf(array);
    if (automation::ElementSize(type) != array->cbElements) return E_INVALIDARG;

    SAFEARRAY* const made = AllocateDescriptor(array->cDims, type);
    if (made == nullptr) return E_OUTOFMEMORY;
    std::memcpy(made->rgsabound, array->rgsabound, array->cDims * sizeof(SAFEARRAYBOUND));
    const std::size_t size = DataSize(array).value_or(0);
    // Not zeroed: every byte is written at once.
    made->pvData = std::malloc(size != 0 ? size : 1);
    if (made->pvData == nullptr) {
        std::free(BlockOf(made));
        return E_OUTOFMEMORY;
    }
    if (size != 0) std::memcpy(made->pvData, array->pvData, size);
    if (OwnsElements(made)) {
        const HRESULT status = OwnCopiedElements(made, type, size);
        if (FAILED(status)) {
            Free(made);
            return status;
        }
    }
    *copy = made;
    return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* element) {
    if (array == nullptr || indices == nullptr || element == nullptr) return E_INVALIDARG;
    const Locked lock(array);
    if (FAILED(lock.Status())) return lock.Status();
    const std::byte* const found = ElementAt(array, indices);
    if (found == nullptr) return DISP_E_BADINDEX;
    std::memcpy(element, found, array->cbElements);
    return OwnsElements(array) ? automation::OwnCopiedValue(TypeOf(array), element) : S_OK;
}

HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* element) {
    if (array == nullptr || indices == nullptr) return E_INVALIDARG;
    const Locked lock(array);
    if (FAILED(lock.Status())) return lock.Status();
    std::byte* const place = ElementAt(array, indices);
    if (place == nullptr) return DISP_E_BADINDEX;
    if (!OwnsElements(array)) {
        if (element == nullptr) return E_INVALIDARG;
        std::memcpy(place, element, array->cbElements);
        return S_OK;
    }
    // Strings and objects come as themselves, anything else by its address.
    const VARTYPE type = TypeOf(array);
    alignas(VARIANT) std::byte fresh[sizeof(VARIANT)] = {};
    if (type == VT_VARIANT) {
        if (element == nullptr) return E_INVALIDARG;
        std::memcpy(fresh, element, sizeof(VARIANT));
    } else {
        std::memcpy(fresh, &element, sizeof(element));
    }
    if (type != VT_BSTR || element != nullptr) {
        const HRESULT status = automation::OwnCopiedValue(type, fresh);
        if (FAILED(status)) return status;
    }
    alignas(VARIANT) std::byte old[sizeof(VARIANT)] = {};
    std::memcpy(old, place, array->cbElements);
    std::memcpy(place, fresh, array->cbElements);
    automation::ReleaseValue(type, old);
    return S_OK;
}
