#pragma once

#include <lua.hpp>

namespace mavrin2::script {

// Opens the module `mavrin2`, as luaL_requiref expects.
int OpenModule(lua_State* lua);

// mavrin2.connect(object, {Event = function(…) end, …}): calls the functions for the object's
// events, until `close()` of the result or the end of the object. An error in a function is printed
// on standard error, and the operation continues.
int Connect(lua_State* lua);

// Makes an interrupt of the program stop what the object on top of the stack is doing, if it tells
// of its progress: until a call returns, Lua itself does not run.
void StopWhenInterrupted(lua_State* lua);

// mavrin2.members(object): lists the object's members and events from its type information: name,
// kind
// ("method", "get", "put", "putref" or "event"), id, help, type of the result if it has one, and
// parameters: name, type, direction ("in", "out" or "inout"), optional, default.
int Members(lua_State* lua);

// mavrin2.window(object, width, height [, {active = false}]): a window without a screen that the
// object fills.
int OpenWindow(lua_State* lua);

// Pushes the table `mavrin2.const`. Its fields are the members of all enumerations in the type
// libraries of the objects that the script has held so far and of the editor; they are read when a
// constant is first used.
void PushConstants(lua_State* lua);

}  // namespace mavrin2::script
