// Changing the type of a value, by the platform's rules.

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/linux/automation/functions.h"
#include "platform/linux/automation/number_text.h"
#include "platform/linux/automation/status.h"
#include "platform/linux/automation/value_types.h"

namespace mavrin2::platform::automation {
namespace {

constexpr LONGLONG CurrencyScale = 10000;
// The first of January 100 up to the end of 9999.
constexpr double FirstDate = -657434.0;
constexpr double EndOfDates = 2958466.0;

// What every number is before it becomes one of the target's type.
struct Number {
    WideNumber Value = 0;
    // Integers of one width are reinterpreted instead of range checked, and a boolean fits all.
    std::size_t IntegerSize = 0;
    bool IsBoolean = false;
};

bool IsInteger(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_INT:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_UI8:
        case VT_UINT:
            return true;
        default:
            return false;
    }
}

std::optional<Number> NumberOf(const VARIANT& source) {
    const std::size_t size = IsInteger(source.vt) ? ElementSize(source.vt) : 0;
    const auto integer = [size](auto value) {
        return Number{static_cast<WideNumber>(value), size, false};
    };
    switch (source.vt) {
        case VT_EMPTY:
            return Number{};
        case VT_I1:
            return integer(static_cast<std::int8_t>(source.cVal));
        case VT_UI1:
            return integer(source.bVal);
        case VT_I2:
            return integer(source.iVal);
        case VT_UI2:
            return integer(source.uiVal);
        case VT_I4:
        case VT_INT:
            return integer(source.lVal);
        case VT_UI4:
        case VT_UINT:
            return integer(source.ulVal);
        case VT_I8:
            return integer(source.llVal);
        case VT_UI8:
            return integer(source.ullVal);
        case VT_R4:
            return Number{source.fltVal};
        case VT_R8:
            return Number{source.dblVal};
        case VT_DATE:
            return Number{source.date};
        case VT_CY:
            return Number{static_cast<WideNumber>(source.cyVal.int64) / CurrencyScale};
        case VT_BOOL:
            return Number{static_cast<WideNumber>(source.boolVal), 0, true};
        default:
            return std::nullopt;
    }
}

// The nearest integer, the even one of two; nothing when the type does not hold it.
template <typename Integer>
std::optional<Integer> Rounded(WideNumber value) {
    const WideNumber nearest = std::nearbyint(value);
    if (!(nearest >= static_cast<WideNumber>(std::numeric_limits<Integer>::min()) &&
          nearest <= static_cast<WideNumber>(std::numeric_limits<Integer>::max()))) {
        return std::nullopt;
    }
    return static_cast<Integer>(nearest);
}

template <typename Integer>
HRESULT StoreInteger(const Number& number, Integer& target) {
    if (number.IsBoolean || number.IntegerSize == sizeof(Integer)) {
        // By way of an integer that holds it, so that the bits are kept.
        target = number.Value < 0 ? static_cast<Integer>(static_cast<std::int64_t>(number.Value))
                                  : static_cast<Integer>(static_cast<std::uint64_t>(number.Value));
        return S_OK;
    }
    const auto rounded = Rounded<Integer>(number.Value);
    if (!rounded) return DISP_E_OVERFLOW;
    target = *rounded;
    return S_OK;
}

HRESULT StoreNumber(const Number& number, VARTYPE type, VARIANT& target) {
    switch (type) {
        case VT_I1: {
            std::int8_t value = 0;
            const HRESULT status = StoreInteger(number, value);
            target.cVal = static_cast<CHAR>(value);
            return status;
        }
        case VT_UI1:
            return StoreInteger(number, target.bVal);
        case VT_I2:
            return StoreInteger(number, target.iVal);
        case VT_UI2:
            return StoreInteger(number, target.uiVal);
        case VT_I4:
        case VT_INT:
            return StoreInteger(number, target.lVal);
        case VT_UI4:
        case VT_UINT:
            return StoreInteger(number, target.ulVal);
        case VT_I8:
            return StoreInteger(number, target.llVal);
        case VT_UI8:
            return StoreInteger(number, target.ullVal);
        case VT_R4: {
            const auto value = static_cast<float>(number.Value);
            target.fltVal = value;
            return std::isinf(value) ? DISP_E_OVERFLOW : S_OK;
        }
        case VT_R8:
            target.dblVal = static_cast<double>(number.Value);
            return S_OK;
        case VT_DATE:
            target.date = static_cast<double>(number.Value);
            return target.date >= FirstDate && target.date < EndOfDates ? S_OK : DISP_E_OVERFLOW;
        case VT_CY: {
            const auto scaled = Rounded<LONGLONG>(number.Value * CurrencyScale);
            if (!scaled) return DISP_E_OVERFLOW;
            target.cyVal.int64 = *scaled;
            return S_OK;
        }
        case VT_BOOL:
            target.boolVal = number.Value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        default:
            return DISP_E_TYPEMISMATCH;
    }
}

std::u16string Widened(const std::string& text) {
    return {text.begin(), text.end()};
}

std::u16string CurrencyText(LONGLONG amount) {
    // Through the unsigned type, for the smallest amount has no positive counterpart.
    const bool negative = amount < 0;
    const ULONGLONG magnitude =
        negative ? ULONGLONG{0} - static_cast<ULONGLONG>(amount) : static_cast<ULONGLONG>(amount);
    std::string text = std::to_string(magnitude / CurrencyScale);
    if (const auto fraction = magnitude % CurrencyScale; fraction != 0) {
        std::string digits = std::to_string(CurrencyScale + fraction).substr(1);
        digits.erase(digits.find_last_not_of('0') + 1);
        text += "." + digits;
    }
    return Widened(negative ? "-" + text : text);
}

std::optional<std::u16string> TextOf(const VARIANT& source, USHORT flags) {
    switch (source.vt) {
        case VT_EMPTY:
            return u"";
        case VT_R4:
            return FormatNumber(source.fltVal, 7);
        case VT_R8:
            return FormatNumber(source.dblVal, 15);
        case VT_CY:
            return CurrencyText(source.cyVal.int64);
        case VT_BOOL:
            if ((flags & (VARIANT_ALPHABOOL | VARIANT_LOCALBOOL)) != 0) {
                return source.boolVal != VARIANT_FALSE ? u"True" : u"False";
            }
            return Widened(std::to_string(source.boolVal));
        case VT_UI8:
            return Widened(std::to_string(source.ullVal));
        default:
            if (!IsInteger(source.vt)) return std::nullopt;
            return Widened(std::to_string(static_cast<std::int64_t>(NumberOf(source)->Value)));
    }
}

bool SameLetters(std::u16string_view text, std::string_view lowerCase) {
    if (text.size() != lowerCase.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i] >= u'A' && text[i] <= u'Z' ? text[i] + (u'a' - u'A') : text[i];
        if (c != static_cast<char16_t>(lowerCase[i])) return false;
    }
    return true;
}

HRESULT FromText(BSTR source, VARTYPE type, VARIANT& target) {
    const std::u16string_view text = source != nullptr
                                         ? std::u16string_view(source, SysStringLen(source))
                                         : std::u16string_view();
    if (type == VT_BOOL) {
        for (const auto& [word, value] :
             {std::pair{"true", VARIANT_TRUE}, std::pair{"false", VARIANT_FALSE},
              std::pair{"#true#", VARIANT_TRUE}, std::pair{"#false#", VARIANT_FALSE}}) {
            if (SameLetters(text, word)) {
                target.boolVal = value;
                return S_OK;
            }
        }
    }
    // Dates in words depend on the locale, which nothing here follows.
    if (type == VT_DATE) return DISP_E_TYPEMISMATCH;
    const auto value = ParseNumber(text);
    if (!value) return DISP_E_TYPEMISMATCH;
    if (std::abs(*value) > std::numeric_limits<double>::max()) return DISP_E_OVERFLOW;
    return StoreNumber({*value}, type, target);
}

HRESULT ChangeObject(VARIANT& source, VARTYPE type, REFIID iid, VARIANT& target) {
    target.punkVal = nullptr;
    if (source.punkVal == nullptr) return S_OK;
    void* object = nullptr;
    if (FAILED(source.punkVal->QueryInterface(iid, &object))) return DISP_E_TYPEMISMATCH;
    if (type == VT_DISPATCH) {
        target.pdispVal = static_cast<IDispatch*>(object);
    } else {
        target.punkVal = static_cast<IUnknown*>(object);
    }
    return S_OK;
}

HRESULT Change(VARIANT& source, LCID lcid, USHORT flags, VARTYPE type, VARIANT& target);

HRESULT FromDefaultProperty(VARIANT& source, LCID lcid, USHORT flags, VARTYPE type,
                            VARIANT& target) {
    if (source.pdispVal == nullptr) return DISP_E_BADVARTYPE;
    if ((flags & VARIANT_NOVALUEPROP) != 0) return DISP_E_TYPEMISMATCH;
    DISPPARAMS none = {};
    VARIANT value = {};
    if (FAILED(source.pdispVal->Invoke(DISPID_VALUE, IID_NULL, lcid, DISPATCH_PROPERTYGET, &none,
                                       &value, nullptr, nullptr))) {
        return DISP_E_TYPEMISMATCH;
    }
    // The value is not asked for a default property of its own: that could go on for ever.
    const HRESULT status = Change(value, lcid, flags | VARIANT_NOVALUEPROP, type, target);
    VariantClear(&value);
    return status;
}

// Bytes and strings change into each other as they are; all other arrays stay what they are.
HRESULT ChangeArray(VARIANT& source, VARTYPE type, VARIANT& target) {
    if (source.vt == type) return SafeArrayCopy(source.parray, &target.parray);
    constexpr VARTYPE bytes = VT_ARRAY | VT_UI1;
    void* data = nullptr;
    if (source.vt == bytes && type == VT_BSTR) {
        if (SafeArrayGetDim(source.parray) != 1) return DISP_E_TYPEMISMATCH;
        const HRESULT status = SafeArrayAccessData(source.parray, &data);
        if (FAILED(status)) return status;
        target.bstrVal =
            SysAllocStringByteLen(static_cast<LPCSTR>(data), source.parray->rgsabound[0].cElements);
        SafeArrayUnaccessData(source.parray);
        return target.bstrVal != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    if (source.vt == VT_BSTR && type == bytes) {
        const UINT size = SysStringByteLen(source.bstrVal);
        target.parray = SafeArrayCreateVector(VT_UI1, 0, size);
        if (target.parray == nullptr) return E_OUTOFMEMORY;
        if (size != 0) std::memcpy(target.parray->pvData, source.bstrVal, size);
        return S_OK;
    }
    return DISP_E_TYPEMISMATCH;
}

HRESULT ToText(VARIANT& source, USHORT flags, VARIANT& target) {
    const auto text = TextOf(source, flags);
    if (!text) return DISP_E_TYPEMISMATCH;
    target.bstrVal = SysAllocStringLen(text->data(), static_cast<UINT>(text->size()));
    return target.bstrVal != nullptr ? S_OK : E_OUTOFMEMORY;
}

// `source` is no reference. `target` comes empty and owns its value when this succeeds.
HRESULT Change(VARIANT& source, LCID lcid, USHORT flags, VARTYPE type, VARIANT& target) {
    if (((source.vt | type) & VT_ARRAY) != 0) return ChangeArray(source, type, target);
    if (source.vt == type) return VariantCopy(&target, &source);
    if (source.vt == VT_NULL || source.vt == VT_ERROR || source.vt == VT_DECIMAL) {
        return DISP_E_TYPEMISMATCH;
    }
    switch (type) {
        case VT_EMPTY:
        case VT_NULL:
            return S_OK;
        case VT_UNKNOWN:
        case VT_DISPATCH:
            if (source.vt != VT_UNKNOWN && source.vt != VT_DISPATCH) return DISP_E_TYPEMISMATCH;
            return ChangeObject(source, type, type == VT_UNKNOWN ? IID_IUnknown : IID_IDispatch,
                                target);
        case VT_ERROR:
        case VT_VARIANT:
        case VT_DECIMAL:
            return DISP_E_TYPEMISMATCH;
        default:
            break;
    }
    if (source.vt == VT_DISPATCH) return FromDefaultProperty(source, lcid, flags, type, target);
    if (type == VT_BSTR) return ToText(source, flags, target);
    if (source.vt == VT_BSTR) return FromText(source.bstrVal, type, target);
    const auto number = NumberOf(source);
    return number ? StoreNumber(*number, type, target) : DISP_E_TYPEMISMATCH;
}

HRESULT ChangeInto(VARIANT* target, VARIANT* source, LCID lcid, USHORT flags, VARTYPE type) {
    if (!IsVariantType(source->vt) || !IsVariantType(type)) return DISP_E_BADVARTYPE;
    if ((type & VT_BYREF) != 0) return DISP_E_TYPEMISMATCH;
    VARIANT value = {};
    if ((source->vt & VT_BYREF) != 0) {
        if (source->byref == nullptr) return DISP_E_TYPEMISMATCH;
        const HRESULT status = VariantCopyInd(&value, source);
        if (FAILED(status)) return status;
    }
    VARIANT& from = (source->vt & VT_BYREF) != 0 ? value : *source;

    VARIANT changed = {};
    HRESULT status = Change(from, lcid, flags, type, changed);
    VariantClear(&value);
    if (FAILED(status)) return status;
    changed.vt = type;
    status = VariantClear(target);
    if (FAILED(status)) {
        VariantClear(&changed);
        return status;
    }
    *target = changed;
    return S_OK;
}

}  // namespace
}  // namespace mavrin2::platform::automation

HRESULT VariantChangeType(VARIANTARG* target, VARIANTARG* source, USHORT flags, VARTYPE type) {
    return VariantChangeTypeEx(target, source, LOCALE_USER_DEFAULT, flags, type);
}

HRESULT VariantChangeTypeEx(VARIANTARG* target, VARIANTARG* source, LCID lcid, USHORT flags,
                            VARTYPE type) {
    if (target == nullptr || source == nullptr) return DISP_E_BADVARTYPE;
    try {
        return mavrin2::platform::automation::ChangeInto(target, source, lcid, flags, type);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT DispGetParam(DISPPARAMS* params, UINT position, VARTYPE type, VARIANT* result,
                     UINT* badArgument) {
    if (params == nullptr || result == nullptr) return E_INVALIDARG;
    UINT index = params->cArgs;
    if (position < params->cArgs - params->cNamedArgs) {
        index = params->cArgs - 1 - position;
    } else {
        for (UINT i = 0; i < params->cNamedArgs; ++i) {
            if (params->rgdispidNamedArgs[i] == static_cast<DISPID>(position)) index = i;
        }
    }
    if (index >= params->cArgs) return DISP_E_PARAMNOTFOUND;
    const HRESULT status = VariantChangeType(result, &params->rgvarg[index], 0, type);
    if (FAILED(status) && badArgument != nullptr) *badArgument = index;
    return status;
}
