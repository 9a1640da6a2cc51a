#include "hosts/script/lua/lua_call.h"

#include <vector>

#include "automation/text.h"
#include "automation/variant.h"
#include "hosts/binding/late_binding.h"
#include "hosts/script/lua/lua_error.h"
#include "hosts/script/lua/lua_object.h"
#include "hosts/script/lua/lua_value.h"

namespace mavrin2::script {
namespace {

using automation::Variant;

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

DISPID IdOf(IDispatch& object, std::string_view name) {
    automation::OleString wide = automation::ToOle(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = DISPID_UNKNOWN;
    const HRESULT status = object.GetIDsOfNames(GUID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    if (SUCCEEDED(status)) return id;
    if (status == DISP_E_UNKNOWNNAME)
        throw binding::CallError(status, "the object has no member '" + std::string(name) + "'.");
    throw binding::CallError(status, std::string(name) + ": " + binding::StatusText(status));
}

Variant InvokeWith(lua_State* lua, IDispatch& object, std::string_view name, WORD flags,
                   int first) {
    const binding::DescribedType any{VT_VARIANT, "value"};
    std::vector<Variant> owned;
    for (int index = first; index <= lua_gettop(lua); ++index)
        owned.push_back(ToVariant(lua, index, any));
    std::vector<VARIANT> arguments(owned.begin(), owned.end());
    return binding::Invoke(object, {name, IdOf(object, name), flags, arguments});
}

int CallByName(lua_State* lua) {
    const std::string name = lua_tostring(lua, lua_upvalueindex(1));
    // Held, since a handler may release it.
    const automation::ComPtr<IDispatch> object = CheckObject(lua, 1).Object;
    PushVariant(lua, InvokeWith(lua, *object, name, kRead, 2));
    return 1;
}

}  // namespace

int ReadByName(lua_State* lua, IDispatch& object, const std::string& name) {
    try {
        PushVariant(lua,
                    binding::Invoke(object, {name, IdOf(object, name), DISPATCH_PROPERTYGET, {}}));
    } catch (const binding::CallError& error) {
        const HRESULT status = error.Status();
        if (status != DISP_E_MEMBERNOTFOUND && status != DISP_E_BADPARAMCOUNT &&
            status != DISP_E_PARAMNOTOPTIONAL)
            throw;
        lua_pushlstring(lua, name.data(), name.size());
        lua_pushcclosure(lua, &Protected<&CallByName>, 1);
    }
    return 1;
}

void PutByName(lua_State* lua, IDispatch& object, std::string_view name, int first) {
    if (ToObject(lua, -1)) {
        try {
            InvokeWith(lua, object, name, DISPATCH_PROPERTYPUTREF, first);
            return;
        } catch (const binding::CallError& error) {
            if (error.Status() != DISP_E_MEMBERNOTFOUND) throw;
        }
    }
    InvokeWith(lua, object, name, DISPATCH_PROPERTYPUT, first);
}

}  // namespace mavrin2::script
