#pragma once

#include <lua.hpp>
#include <string>
#include <string_view>

#include "platform/automation.h"

namespace mavrin2::script {

// Objects that tell nothing of their type are asked for each member by its name, and are trusted to
// convert what they are given. Throws CallError.

// Pushes a property's value, or a function where the object reads none without arguments.
int ReadByName(lua_State* lua, IDispatch& object, const std::string& name);

// Indices, if any, and the new value stand from `first` to the top.
void PutByName(lua_State* lua, IDispatch& object, std::string_view name, int first);

}  // namespace mavrin2::script
