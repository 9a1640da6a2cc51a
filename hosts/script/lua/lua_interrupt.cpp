#include "hosts/script/lua/lua_interrupt.h"

#include <atomic>

#include "platform/interrupt.h"

namespace mavrin2::script {
namespace {

// A signal handler can reach only what is global.
std::atomic<lua_State*> watchedState = nullptr;
static_assert(std::atomic<lua_State*>::is_always_lock_free);

void Fail(lua_State* lua, lua_Debug*) {
    lua_sethook(lua, nullptr, 0, 0);
    luaL_error(lua, "interrupted");
}

}  // namespace

void InterruptLua(lua_State* lua) {
    lua_sethook(lua, &Fail, LUA_MASKCALL | LUA_MASKRET | LUA_MASKLINE | LUA_MASKCOUNT, 1);
}

InterruptibleLua::InterruptibleLua(lua_State* lua) : lua_(lua) {
    watchedState = lua;
    platform::SetInterruptAction([] {
        if (lua_State* watched = watchedState) InterruptLua(watched);
    });
}

InterruptibleLua::~InterruptibleLua() {
    watchedState = nullptr;
    platform::SetInterruptAction(nullptr);
    // Finalizers run to their end.
    lua_sethook(lua_, nullptr, 0, 0);
}

}  // namespace mavrin2::script
