#include "hosts/script/lua/lua_array.h"

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

#include "automation/guarded.h"
#include "hosts/script/lua/lua_value.h"

namespace mavrin2::script {
namespace {

using automation::ThrowIfFailed;
using automation::Variant;

// The elements of an array, for as long as this exists.
class Elements {
public:
    explicit Elements(SAFEARRAY* array) : array_(array) {
        ThrowIfFailed(SafeArrayAccessData(array, &data_));
    }
    Elements(const Elements&) = delete;
    Elements& operator=(const Elements&) = delete;
    ~Elements() { SafeArrayUnaccessData(array_); }

    void* Data() const { return data_; }

private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

// Calls `action` with a value of the C++ type for numbers of `type`; false if it is no such type.
template <class Action>
bool WithNumberType(VARTYPE type, Action&& action) {
    switch (type) {
        case VT_UI1:
            return action(BYTE{}), true;
        case VT_I2:
            return action(SHORT{}), true;
        case VT_I4:
            return action(LONG{}), true;
        case VT_R4:
            return action(FLOAT{}), true;
        case VT_R8:
            return action(DOUBLE{}), true;
        default:
            return false;
    }
}

// The Lua number at the top of the stack, if it needs no rounding and is in range. What else there
// is to convert is the business of the system's coercions.
template <class Number>
bool NumberAtTop(lua_State* lua, Number& number) {
    using Limits = std::numeric_limits<Number>;
    if (lua_type(lua, -1) != LUA_TNUMBER) return false;
    if constexpr (std::is_floating_point_v<Number>) {
        const lua_Number value = lua_tonumber(lua, -1);
        number = static_cast<Number>(value);
        return std::abs(value) <= Limits::max();
    } else {
        int whole = 0;
        const lua_Integer value = lua_tointegerx(lua, -1, &whole);
        number = static_cast<Number>(value);
        return whole && value >= Limits::min() && value <= Limits::max();
    }
}

// The address of a value in its variant, as elements of arrays are put and got.
void* ElementOf(VARIANT& value, VARTYPE type, bool put) {
    if (type == VT_VARIANT) return &value;
    // Put by value, taken by address.
    if (put && (type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN)) return value.byref;
    return &value.llVal;
}

// Stores the value at the top of the stack, whatever it is.
void PutElement(lua_State* lua, SAFEARRAY* array, LONG index, VARTYPE type, int depth) {
    Variant value = ToVariant(lua, -1, {type, "element"}, depth + 1);
    if (type != VT_VARIANT && FAILED(VariantChangeType(&value, &value, 0, type)))
        throw ConversionError("element " + std::to_string(index + 1) +
                              " has the wrong type or is out of range");
    ThrowIfFailed(SafeArrayPutElement(array, &index, ElementOf(value, type, true)));
}

void PushElements(lua_State* lua, SAFEARRAY* array, VARTYPE type, LONG lower, LONG count) {
    for (LONG i = 0; i < count; ++i) {
        LONG place = lower + i;
        Variant element;
        ThrowIfFailed(SafeArrayGetElement(array, &place, ElementOf(element, type, false)));
        if (type != VT_VARIANT) element.vt = type;
        PushVariant(lua, element);
        lua_rawseti(lua, -2, lua_Integer{i} + 1);
    }
}

}  // namespace

Variant ArrayOfTable(lua_State* lua, int index, VARTYPE type, int depth) {
    const int table = lua_absindex(lua, index);
    const lua_Integer length = luaL_len(lua, table);
    if (length > std::numeric_limits<LONG>::max()) throw ConversionError("the table is too long");
    const auto count = static_cast<LONG>(length);
    Variant result;
    result.parray = SafeArrayCreateVector(type, 0, static_cast<ULONG>(count));
    if (!result.parray) throw std::bad_alloc();
    result.vt = static_cast<VARTYPE>(VT_ARRAY | type);

    const bool numbers = WithNumberType(type, [&]<class Number>(Number) {
        const Elements elements(result.parray);
        auto* const data = static_cast<Number*>(elements.Data());
        for (LONG i = 0; i < count; ++i) {
            lua_geti(lua, table, lua_Integer{i} + 1);
            if (!NumberAtTop(lua, data[i])) PutElement(lua, result.parray, i, type, depth);
            lua_pop(lua, 1);
        }
    });
    for (LONG i = 0; !numbers && i < count; ++i) {
        lua_geti(lua, table, lua_Integer{i} + 1);
        PutElement(lua, result.parray, i, type, depth);
        lua_pop(lua, 1);
    }
    return result;
}

void PushArray(lua_State* lua, SAFEARRAY* array) {
    if (!array) {
        lua_newtable(lua);
        return;
    }
    VARTYPE type = VT_EMPTY;
    LONG lower = 0;
    LONG upper = -1;
    if (SafeArrayGetDim(array) != 1)
        throw ConversionError("an array of several dimensions cannot be read");
    ThrowIfFailed(SafeArrayGetVartype(array, &type));
    ThrowIfFailed(SafeArrayGetLBound(array, 1, &lower));
    ThrowIfFailed(SafeArrayGetUBound(array, 1, &upper));
    const LONG count = upper - lower + 1;
    lua_createtable(lua, static_cast<int>(count), 0);
    const bool numbers = WithNumberType(type, [&]<class Number>(Number) {
        const Elements elements(array);
        const auto* const data = static_cast<const Number*>(elements.Data());
        for (LONG i = 0; i < count; ++i) {
            if constexpr (std::is_floating_point_v<Number>)
                lua_pushnumber(lua, data[i]);
            else
                lua_pushinteger(lua, data[i]);
            lua_rawseti(lua, -2, lua_Integer{i} + 1);
        }
    });
    if (!numbers) PushElements(lua, array, type, lower, count);
}

}  // namespace mavrin2::script
