#pragma once

#include <lua.hpp>

namespace mavrin2::script {

// Makes the running Lua code fail at its next instruction. May be called at any time, also from a
// signal handler.
void InterruptLua(lua_State* lua);

// While it lives, an interrupt of the program does that to the state. One at a time.
class InterruptibleLua {
public:
    explicit InterruptibleLua(lua_State* lua);
    InterruptibleLua(const InterruptibleLua&) = delete;
    InterruptibleLua& operator=(const InterruptibleLua&) = delete;
    ~InterruptibleLua();

private:
    lua_State* lua_;
};

}  // namespace mavrin2::script
