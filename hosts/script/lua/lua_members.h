#pragma once

#include <lua.hpp>

namespace mavrin2::script {

// mavrin2.members(object): a list of what the object's type description says of each member and
// event: name, kind ("method", "get", "put", "putref" or "event"), id, help, type of the result if
// it has one, and parameters: name, type, direction ("in", "out" or "inout"), optional, default.
int Members(lua_State* lua);

}  // namespace mavrin2::script
