#pragma once

#include <lua.hpp>

namespace mavrin2::script {

// Opens the module `mavrin2`, for luaL_requiref.
int OpenModule(lua_State* lua);

}  // namespace mavrin2::script
