#pragma once

#include <lua.hpp>

namespace mavrin2::hosts::script {

// What the user asks for with Ctrl-C (or by SIGTERM, SIGHUP): the program stops where it can do so
// cleanly. Asked a second time it dies at once, as it would without this.

// From then on the signals are noted; a signal that the starter of the program ignores stays so.
void CatchInterrupts();

bool Interrupted();

// Makes the running Lua code fail at its next instruction.
void InterruptLua(lua_State* lua);

// While it lives, an interrupt does that to the state. One at a time.
class InterruptibleLua {
public:
    explicit InterruptibleLua(lua_State* lua);
    InterruptibleLua(const InterruptibleLua&) = delete;
    InterruptibleLua& operator=(const InterruptibleLua&) = delete;
    ~InterruptibleLua();

private:
    lua_State* lua_;
};

// Lets the signal that was noted end the program after all: that is how a shell learns of it.
[[noreturn]] void DieInterrupted();

}  // namespace mavrin2::hosts::script
