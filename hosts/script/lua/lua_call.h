#pragma once

#include <lua.hpp>
#include <string_view>

#include "hosts/script/lua/lua_host.h"

namespace mavrin2::script {

// Calls a method or reads a property with the arguments from stack index `first` to the top, and
// pushes the result and then the out-parameters; returns how many. Arguments that are left out or
// nil at the place of an optional parameter are left out of the call.
int CallMember(lua_State* lua, IDispatch& object, const DescribedMember& member, int first);

// Writes a property: its indices, if it has any, and its new value stand from `first` to the top.
void PutMember(lua_State* lua, IDispatch& object, const TypeDescription& type,
               std::string_view name, int first);

}  // namespace mavrin2::script
