#pragma once

#include <lua.hpp>

namespace mavrin2::script {

// mavrin2.connect(object, {Event = function(…) end, …}): calls the functions at the object's
// events, until `close()` of the result or the end of the object. A function that fails is told on
// standard error, and what the object is doing goes on.
int Connect(lua_State* lua);

}  // namespace mavrin2::script
