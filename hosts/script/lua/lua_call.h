#pragma once

#include <lua.hpp>
#include <string>
#include <string_view>

#include "hosts/script/lua/lua_host.h"

namespace mavrin2::script {

// Calls a method or reads a property with the arguments from stack index `first` to the top, and
// pushes the result and then the out-parameters; returns how many. Arguments that are left out or
// nil at the place of an optional parameter are left out of the call.
int CallMember(lua_State* lua, IDispatch& object, const binding::DescribedMember& member,
               int first);

// Writes a property. The stack from `first` to the top holds its indices, if any, and the value.
void PutMember(lua_State* lua, IDispatch& object, const binding::TypeDescription& type,
               std::string_view name, int first);

// Members of objects without type information are looked up by name, and the objects convert the
// arguments. Throws CallError.

// Pushes a property's value, or a function if the object needs arguments to read it.
int ReadByName(lua_State* lua, IDispatch& object, const std::string& name);

// The stack from `first` to the top holds the indices, if any, and the value.
void PutByName(lua_State* lua, IDispatch& object, std::string_view name, int first);

}  // namespace mavrin2::script
