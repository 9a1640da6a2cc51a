#include "hosts/script/lua/lua_error.h"

#include <cstdint>

namespace mavrin2::script {
namespace {

constexpr const char* kErrorType = "mavrin2.error";

int ErrorToString(lua_State* lua) {
    luaL_checktype(lua, 1, LUA_TTABLE);
    lua_getfield(lua, 1, "description");
    lua_getfield(lua, 1, "status");
    const char* description = luaL_tolstring(lua, -2, nullptr);
    const auto status = static_cast<HRESULT>(lua_tointeger(lua, -2));
    lua_pushfstring(lua, "%s (%s)", description, binding::StatusNumber(status).c_str());
    for (const char* field : {"file", "reason"})
        if (lua_getfield(lua, 1, field) == LUA_TSTRING) {
            lua_pushfstring(lua, "%s: %s", lua_tostring(lua, -2), lua_tostring(lua, -1));
            lua_replace(lua, -3);
            lua_pop(lua, 1);
        } else {
            lua_pop(lua, 1);
        }
    return 1;
}

}  // namespace

void PushError(lua_State* lua, HRESULT status, const char* description) {
    lua_createtable(lua, 0, 2);
    // Unsigned, as statuses are usually written.
    lua_pushinteger(lua, static_cast<std::uint32_t>(status));
    lua_setfield(lua, -2, "status");
    lua_pushstring(lua, description);
    lua_setfield(lua, -2, "description");
    if (luaL_newmetatable(lua, kErrorType)) {
        lua_pushcfunction(lua, &ErrorToString);
        lua_setfield(lua, -2, "__tostring");
    }
    lua_setmetatable(lua, -2);
}

void PushError(lua_State* lua, const FileError& error) {
    PushError(lua, error.Status(), error.what());
    lua_pushlstring(lua, error.File().data(), error.File().size());
    lua_setfield(lua, -2, "file");
    if (error.Reason().empty()) return;
    lua_pushstring(lua, error.Reason().c_str());
    lua_setfield(lua, -2, "reason");
}

void PushMessage(lua_State* lua, const char* message) {
    luaL_where(lua, 1);
    lua_pushstring(lua, message);
    lua_concat(lua, 2);
}

int WithTraceback(lua_State* lua) {
    const char* message = luaL_tolstring(lua, 1, nullptr);
    luaL_traceback(lua, lua, message, 1);
    return 1;
}

}  // namespace mavrin2::script
