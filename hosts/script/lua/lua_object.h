#pragma once

#include <lua.hpp>
#include <memory>

#include "hosts/script/lua/lua_host.h"
#include "platform/automation.h"

namespace mavrin2::script {

// Automation objects in Lua. An object has one Lua value as long as a variable holds that value.
// When Lua collects the value, the connections are closed and the object is released.

// Pushes the value of `object`.
void PushObject(lua_State* lua, IDispatch& object);

// The object at `index`, borrowed; null for any other value and for a released object.
IDispatch* ToObject(lua_State* lua, int index);

// The object at `argument`; raises an error for anything else.
ObjectValue& CheckObject(lua_State* lua, int argument);

// Gives a connection to its object, the value at `index`, together with the table of handlers on
// top of the stack, which is popped. Both are released with the object.
void AttachConnection(lua_State* lua, int index, lua_Integer number,
                      std::shared_ptr<binding::EventConnection> connection);

// A connection of an object; null if either is gone.
std::shared_ptr<binding::EventConnection> FindConnection(lua_State* lua, const void* identity,
                                                         lua_Integer number);

// Pushes the handlers of an open connection.
void PushHandlers(lua_State* lua, const void* identity, lua_Integer number);

// Closes a connection and drops its handlers; harmless if it is closed already.
void DetachConnection(lua_State* lua, const void* identity, lua_Integer number);

}  // namespace mavrin2::script
