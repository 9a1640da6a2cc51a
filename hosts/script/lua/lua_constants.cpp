#include "hosts/script/lua/lua_module.h"

#include "hosts/script/lua/lua_error.h"
#include "hosts/script/lua/lua_host.h"
#include "hosts/script/lua/lua_value.h"

namespace mavrin2::script {
namespace {

// Adds the constants of types that have become known; the upvalue counts the types already read.
void ReadNewLibraries(lua_State* lua, int table) {
    const auto& types = LuaHost::Of(lua).Types();
    auto read = static_cast<std::size_t>(lua_tointeger(lua, lua_upvalueindex(1)));
    for (; read < types.size(); ++read) {
        for (const binding::Constant& constant :
             binding::ConstantsBeside(*types[read]->Information)) {
            PushVariant(lua, constant.Value);
            lua_setfield(lua, table, constant.Name.c_str());
        }
    }
    lua_pushinteger(lua, static_cast<lua_Integer>(read));
    lua_replace(lua, lua_upvalueindex(1));
}

bool PushField(lua_State* lua) {
    lua_pushvalue(lua, 2);
    if (lua_rawget(lua, 1) != LUA_TNIL) return true;
    lua_pop(lua, 1);
    return false;
}

int FindConstant(lua_State* lua) {
    const char* name = luaL_checkstring(lua, 2);
    ReadNewLibraries(lua, 1);
    if (PushField(lua)) return 1;
    // Only an object gives access to its type information.
    LuaHost::Of(lua).TypeOf(*binding::CreateObject(binding::kEditorProgId));
    ReadNewLibraries(lua, 1);
    if (PushField(lua)) return 1;
    return luaL_error(lua, "unknown constant '%s'", name);
}

}  // namespace

void PushConstants(lua_State* lua) {
    lua_newtable(lua);
    lua_createtable(lua, 0, 1);
    lua_pushinteger(lua, 0);
    lua_pushcclosure(lua, &Protected<&FindConstant>, 1);
    lua_setfield(lua, -2, "__index");
    lua_setmetatable(lua, -2);
}

}  // namespace mavrin2::script
