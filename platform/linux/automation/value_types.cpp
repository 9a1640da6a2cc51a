#include "platform/linux/automation/value_types.h"

#include <cstring>

#include "platform/linux/automation/functions.h"
#include "platform/linux/automation/status.h"

namespace mavrin2::platform::automation {
namespace {

template <typename Type>
Type Load(const void* from) {
    Type value;
    std::memcpy(&value, from, sizeof(value));
    return value;
}

void Store(void* to, const auto& value) {
    std::memcpy(to, &value, sizeof(value));
}

}  // namespace

std::size_t ElementSize(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        case VT_DECIMAL:
            return sizeof(DECIMAL);
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        case VT_VARIANT:
            return sizeof(VARIANT);
        default:
            return 0;
    }
}

bool IsVariantType(VARTYPE type) {
    if ((type & (VT_VECTOR | VT_RESERVED)) != 0) return false;
    const VARTYPE plain = type & VT_TYPEMASK;
    if (ElementSize(plain) != 0) return true;
    const bool modified = (type & (VT_ARRAY | VT_BYREF)) != 0;
    return !modified && (plain == VT_EMPTY || plain == VT_NULL);
}

HRESULT OwnCopiedValue(VARTYPE type, void* value) {
    switch (type) {
        case VT_BSTR: {
            auto* const source = Load<BSTR>(value);
            BSTR copy =
                SysAllocStringByteLen(reinterpret_cast<LPCSTR>(source), SysStringByteLen(source));
            Store(value, copy);
            return copy != nullptr ? S_OK : E_OUTOFMEMORY;
        }
        case VT_DISPATCH:
        case VT_UNKNOWN:
            if (auto* const object = static_cast<IUnknown*>(Load<void*>(value))) object->AddRef();
            return S_OK;
        case VT_VARIANT: {
            auto source = Load<VARIANT>(value);
            VARIANT copy = {};
            const HRESULT status = VariantCopy(&copy, &source);
            Store(value, copy);
            return status;
        }
        default:
            return S_OK;
    }
}

void ReleaseValue(VARTYPE type, void* value) {
    switch (type) {
        case VT_BSTR:
            SysFreeString(Load<BSTR>(value));
            break;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            if (auto* const object = static_cast<IUnknown*>(Load<void*>(value))) object->Release();
            break;
        case VT_VARIANT: {
            auto old = Load<VARIANT>(value);
            VariantClear(&old);
            break;
        }
        default:
            break;
    }
}

}  // namespace mavrin2::platform::automation
