#pragma once

#include <lua.hpp>
#include <memory>

#include "hosts/script/lua/lua_host.h"
#include "platform/automation.h"

namespace mavrin2::script {

// Automation objects in Lua. One object is one Lua value as long as a variable holds that value; it
// is released when Lua collects it, after its connections have been closed.

// Pushes the value of `object`.
void PushObject(lua_State* lua, IDispatch& object);

// The object of the value at `index`, borrowed; null for any other value and for an object that was
// released already.
IDispatch* ToObject(lua_State* lua, int index);

// What is kept for the object at `argument`; raises an error for anything else.
ObjectValue& CheckObject(lua_State* lua, int argument);

// Gives a connection to the object it listens to, the value at `index`, with the table of its
// handlers on top of the stack, which is popped. Both go when the object does.
void AttachConnection(lua_State* lua, int index, lua_Integer number,
                      std::shared_ptr<EventConnection> connection);

// One of the connections of an object; null once either is gone.
std::shared_ptr<EventConnection> FindConnection(lua_State* lua, const void* identity,
                                                lua_Integer number);

// Pushes the handlers of a connection that is there.
void PushHandlers(lua_State* lua, const void* identity, lua_Integer number);

// Closes a connection and forgets its handlers; harmless once it is gone.
void DetachConnection(lua_State* lua, const void* identity, lua_Integer number);

}  // namespace mavrin2::script
