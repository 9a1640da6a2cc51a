// Life, death and copies of variants.

#include <cstring>

#include "platform/linux/automation/functions.h"
#include "platform/linux/automation/status.h"
#include "platform/linux/automation/value_types.h"

namespace automation = mavrin2::platform::automation;

namespace {

constexpr VARTYPE Plain(VARTYPE type) {
    return type & VT_TYPEMASK;
}

// Makes a bitwise copy of a variant that is no reference own its contents.
HRESULT OwnCopiedVariant(VARIANT& copy) {
    if ((copy.vt & VT_ARRAY) != 0) {
        SAFEARRAY* const source = copy.parray;
        copy.parray = nullptr;
        return SafeArrayCopy(source, &copy.parray);
    }
    return automation::OwnCopiedValue(copy.vt, &copy.byref);
}

HRESULT Replace(VARIANT* target, VARIANT& fresh) {
    const HRESULT status = VariantClear(target);
    if (FAILED(status)) {
        VariantClear(&fresh);
        return status;
    }
    *target = fresh;
    return S_OK;
}

// The target of a reference to anything but a variant, still owned by its owner.
VARIANT Behind(const VARIANT& reference) {
    VARIANT value = {};
    value.vt = reference.vt & ~VT_BYREF;
    if (value.vt == VT_DECIMAL) {
        value.decVal = *reference.pdecVal;
        value.vt = VT_DECIMAL;  // shares its place with a reserved field of the number
        return value;
    }
    const std::size_t size =
        (value.vt & VT_ARRAY) != 0 ? sizeof(void*) : automation::ElementSize(value.vt);
    std::memcpy(&value.byref, reference.byref, size);
    return value;
}

}  // namespace

void VariantInit(VARIANTARG* variant) {
    *variant = {};
}

HRESULT VariantClear(VARIANTARG* variant) {
    if (variant == nullptr) return E_INVALIDARG;
    if (!automation::IsVariantType(variant->vt)) return DISP_E_BADVARTYPE;
    if ((variant->vt & VT_BYREF) == 0) {
        if ((variant->vt & VT_ARRAY) != 0) {
            const HRESULT status = SafeArrayDestroy(variant->parray);
            if (FAILED(status)) return status;
        } else if (variant->vt != VT_VARIANT) {
            // Emptied first: a last release may lead back to this variant.
            VARIANT old = *variant;
            variant->vt = VT_EMPTY;
            automation::ReleaseValue(old.vt, &old.byref);
        }
    }
    variant->vt = VT_EMPTY;
    return S_OK;
}

HRESULT VariantCopy(VARIANTARG* target, VARIANTARG* source) {
    if (target == nullptr || source == nullptr) return E_INVALIDARG;
    if (!automation::IsVariantType(source->vt)) return DISP_E_BADVARTYPE;
    if (target == source) return S_OK;
    VARIANT copy = *source;
    if ((copy.vt & VT_BYREF) == 0 && copy.vt != VT_VARIANT) {
        const HRESULT status = OwnCopiedVariant(copy);
        if (FAILED(status)) return status;
    }
    return Replace(target, copy);
}

HRESULT VariantCopyInd(VARIANT* target, VARIANTARG* source) {
    if (target == nullptr || source == nullptr) return E_INVALIDARG;
    if (!automation::IsVariantType(source->vt)) return DISP_E_BADVARTYPE;
    if ((source->vt & VT_BYREF) == 0) return VariantCopy(target, source);
    if (source->byref == nullptr) return E_INVALIDARG;

    if (Plain(source->vt) == VT_VARIANT && (source->vt & VT_ARRAY) == 0) {
        VARIANT* const inner = source->pvarVal;
        // One level only: a chain could lead back to itself.
        if (inner->vt == (VT_VARIANT | VT_BYREF)) return E_INVALIDARG;
        VARIANT copy = {};
        const HRESULT status = VariantCopyInd(&copy, inner);
        return FAILED(status) ? status : Replace(target, copy);
    }
    VARIANT copy = Behind(*source);
    const HRESULT status = OwnCopiedVariant(copy);
    return FAILED(status) ? status : Replace(target, copy);
}
