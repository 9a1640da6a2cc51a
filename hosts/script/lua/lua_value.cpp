#include "hosts/script/lua/lua_value.h"

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "automation/com_ptr.h"
#include "automation/guarded.h"
#include "automation/text.h"
#include "hosts/script/lua/lua_array.h"
#include "hosts/script/lua/lua_object.h"

namespace mavrin2::script {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::ThrowIfFailed;
using automation::Variant;

// A limit, since a table may contain itself.
constexpr int kDeepestTable = 16;

template <class Narrow>
bool Fits(lua_Integer value) {
    return value >= std::numeric_limits<Narrow>::min() &&
           value <= std::numeric_limits<Narrow>::max();
}

[[noreturn]] void Refuse(lua_State* lua, int index, const binding::DescribedType& wanted) {
    throw ConversionError(std::string(luaL_typename(lua, index)) + " given, " + wanted.Name +
                          " expected");
}

Variant NumberToVariant(lua_State* lua, int index, const binding::DescribedType& wanted) {
    Variant result;
    int whole = 0;
    const lua_Integer integer = lua_tointegerx(lua, index, &whole);
    if (wanted.Type == VT_BOOL) {
        if (!whole || !Fits<VARIANT_BOOL>(integer))
            throw ConversionError("true, false or a 16-bit integer expected");
        result.vt = VT_BOOL;
        result.boolVal = static_cast<VARIANT_BOOL>(integer);
    } else if (lua_isinteger(lua, index) && Fits<LONG>(integer)) {
        result.vt = VT_I4;
        result.lVal = static_cast<LONG>(integer);
    } else {
        result.vt = VT_R8;
        result.dblVal = lua_tonumber(lua, index);
    }
    return result;
}

Variant TableToVariant(lua_State* lua, int index, const binding::DescribedType& wanted, int depth) {
    if (depth > kDeepestTable) throw ConversionError("tables are nested too deeply");
    const bool any = wanted.Type == VT_VARIANT;
    if (!any && !(wanted.Type & VT_ARRAY)) Refuse(lua, index, wanted);
    const auto type = static_cast<VARTYPE>(any ? VT_VARIANT : wanted.Type & ~VT_ARRAY);
    return ArrayOfTable(lua, index, type, depth);
}

void PushObjectOf(lua_State* lua, IUnknown* object) {
    if (!object) {
        lua_pushnil(lua);
        return;
    }
    const auto dispatch = ComPtr<IUnknown>(object).As<IDispatch>();
    if (!dispatch) throw ConversionError("the object has no automation interface");
    PushObject(lua, *dispatch);
}

void PushText(lua_State* lua, BSTR text) {
    const std::string utf8 = automation::ToUtf8(Bstr::View(text));
    lua_pushlstring(lua, utf8.data(), utf8.size());
}

// Pushes a number of any width; false if `value` is no number.
bool PushNumber(lua_State* lua, const VARIANT& value) {
    switch (value.vt) {
        case VT_I1:
            return lua_pushinteger(lua, value.cVal), true;
        case VT_UI1:
            return lua_pushinteger(lua, value.bVal), true;
        case VT_I2:
        case VT_BOOL:
            return lua_pushinteger(lua, value.iVal), true;
        case VT_UI2:
            return lua_pushinteger(lua, value.uiVal), true;
        case VT_I4:
        case VT_INT:
        case VT_ERROR:
            return lua_pushinteger(lua, value.lVal), true;
        case VT_UI4:
        case VT_UINT:
            return lua_pushinteger(lua, value.ulVal), true;
        case VT_I8:
            return lua_pushinteger(lua, value.llVal), true;
        case VT_R4:
            return lua_pushnumber(lua, value.fltVal), true;
        case VT_R8:
        case VT_DATE:
            return lua_pushnumber(lua, value.dblVal), true;
        case VT_CY:
            return lua_pushnumber(lua, static_cast<double>(value.cyVal.int64) / 10000), true;
        default:
            return false;
    }
}

}  // namespace

Variant ToVariant(lua_State* lua, int index, const binding::DescribedType& wanted, int depth) {
    luaL_checkstack(lua, 4, "too many values");
    Variant result;
    switch (lua_type(lua, index)) {
        case LUA_TNIL:
            return result;
        case LUA_TBOOLEAN:
            result.vt = VT_BOOL;
            result.boolVal = lua_toboolean(lua, index) ? VARIANT_TRUE : VARIANT_FALSE;
            return result;
        case LUA_TNUMBER:
            return NumberToVariant(lua, index, wanted);
        case LUA_TSTRING: {
            std::size_t size = 0;
            const char* text = lua_tolstring(lua, index, &size);
            result.bstrVal = automation::NewBstr(std::string_view(text, size));
            result.vt = VT_BSTR;
            return result;
        }
        case LUA_TTABLE:
            return TableToVariant(lua, index, wanted, depth);
        default:
            break;
    }
    IDispatch* object = ToObject(lua, index);
    if (!object) Refuse(lua, index, wanted);
    result.pdispVal = ComPtr<IDispatch>(object).Detach();
    result.vt = VT_DISPATCH;
    return result;
}

void PushVariant(lua_State* lua, const VARIANT& value) {
    luaL_checkstack(lua, 4, "too many values");
    if (value.vt & VT_BYREF) {
        Variant plain;
        ThrowIfFailed(VariantCopyInd(&plain, const_cast<VARIANT*>(&value)));
        PushVariant(lua, plain);
        return;
    }
    if (PushNumber(lua, value)) return;
    if (value.vt == VT_EMPTY || value.vt == VT_NULL) {
        lua_pushnil(lua);
    } else if (value.vt == VT_BSTR) {
        PushText(lua, value.bstrVal);
    } else if (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN) {
        PushObjectOf(lua, value.punkVal);
    } else if (value.vt & VT_ARRAY) {
        PushArray(lua, value.parray);
    } else {
        throw ConversionError("a value of automation type " + std::to_string(value.vt) +
                              " cannot be read");
    }
}

}  // namespace mavrin2::script
