#pragma once

#include <lua.hpp>

namespace mavrin2::script {

// mavrin2.window(object, width, height [, {active = false}]): a window without a screen that the
// object fills.
int OpenWindow(lua_State* lua);

}  // namespace mavrin2::script
