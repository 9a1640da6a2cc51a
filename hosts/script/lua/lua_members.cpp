#include "hosts/script/lua/lua_module.h"

#include <string>

#include "hosts/script/lua/lua_object.h"
#include "hosts/script/lua/lua_value.h"

namespace mavrin2::script {
namespace {

void SetText(lua_State* lua, const char* field, const std::string& text) {
    lua_pushlstring(lua, text.data(), text.size());
    lua_setfield(lua, -2, field);
}

const char* KindOf(const binding::DescribedMember& member) {
    switch (member.Kind) {
        case INVOKE_PROPERTYGET:
            return "get";
        case INVOKE_PROPERTYPUT:
            return "put";
        case INVOKE_PROPERTYPUTREF:
            return "putref";
        default:
            return "method";
    }
}

void PushParameter(lua_State* lua, const binding::DescribedParameter& parameter) {
    lua_createtable(lua, 0, 5);
    SetText(lua, "name", parameter.Name);
    SetText(lua, "type", parameter.Type.Name);
    SetText(lua, "direction", !parameter.Out ? "in" : parameter.In ? "inout" : "out");
    lua_pushboolean(lua, parameter.Optional);
    lua_setfield(lua, -2, "optional");
    PushVariant(lua, parameter.Default);
    lua_setfield(lua, -2, "default");
}

void PushMember(lua_State* lua, const binding::DescribedMember& member, const char* kind) {
    lua_createtable(lua, 0, 6);
    SetText(lua, "name", member.Name);
    SetText(lua, "kind", kind);
    SetText(lua, "help", member.Help);
    lua_pushinteger(lua, member.Id);
    lua_setfield(lua, -2, "id");
    if (!member.Result.IsVoid()) SetText(lua, "type", member.Result.Name);
    lua_createtable(lua, static_cast<int>(member.Parameters.size()), 0);
    for (const binding::DescribedParameter& parameter : member.Parameters) {
        PushParameter(lua, parameter);
        lua_rawseti(lua, -2, luaL_len(lua, -2) + 1);
    }
    lua_setfield(lua, -2, "parameters");
}

}  // namespace

int Members(lua_State* lua) {
    const ObjectValue& value = CheckObject(lua, 1);
    lua_newtable(lua);
    const int list = lua_gettop(lua);
    for (const binding::DescribedMember& member : value.Type->Description.Members()) {
        PushMember(lua, member, KindOf(member));
        lua_rawseti(lua, list, luaL_len(lua, list) + 1);
    }
    const auto events = binding::EventsOf(*value.Object);
    if (!events) return 1;
    const binding::TypeDescription described(*events);
    for (const binding::DescribedMember& event : described.Members()) {
        PushMember(lua, event, "event");
        lua_rawseti(lua, list, luaL_len(lua, list) + 1);
    }
    return 1;
}

}  // namespace mavrin2::script
