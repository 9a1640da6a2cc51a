#pragma once

#include <lua.hpp>

namespace mavrin2::script {

// Makes the running Lua code fail at its next instruction. May be called from a signal handler.
void InterruptLua(lua_State* lua);

// While this exists, an interrupt of the program also interrupts the state. One at a time.
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
