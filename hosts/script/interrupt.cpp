#include "hosts/script/interrupt.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace mavrin2::hosts::script {
namespace {

static_assert(std::atomic<int>::is_always_lock_free);
static_assert(std::atomic<lua_State*>::is_always_lock_free);

// A signal handler reaches nothing but what is global.
std::atomic<int> notedSignal = 0;
std::atomic<lua_State*> watchedState = nullptr;

void Fail(lua_State* lua, lua_Debug*) {
    lua_sethook(lua, nullptr, 0, 0);
    luaL_error(lua, "interrupted");
}

void Note(int signal) {
    notedSignal = signal;
    if (lua_State* lua = watchedState) InterruptLua(lua);
}

}  // namespace

void CatchInterrupts() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
        action = {};
        action.sa_handler = &Note;
        action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
        ::sigaction(signal, &action, nullptr);
    }
}

bool Interrupted() {
    return notedSignal != 0;
}

void InterruptLua(lua_State* lua) {
    // The one function of Lua that may be called at any time.
    lua_sethook(lua, &Fail, LUA_MASKCALL | LUA_MASKRET | LUA_MASKLINE | LUA_MASKCOUNT, 1);
}

InterruptibleLua::InterruptibleLua(lua_State* lua) : lua_(lua) {
    watchedState = lua;
}

InterruptibleLua::~InterruptibleLua() {
    watchedState = nullptr;
    // What runs while the state is closed has to run to its end.
    lua_sethook(lua_, nullptr, 0, 0);
}

void DieInterrupted() {
    std::fflush(nullptr);
    const int signal = notedSignal;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    std::_Exit(128 + signal);
}

}  // namespace mavrin2::hosts::script
