#pragma once

#include <lua.hpp>
#include <memory>
#include <vector>

#include "hosts/script/container/host_window.h"
#include "hosts/script/lua/object_values.h"

namespace mavrin2::script {

// One Lua state, with Lua's standard library and the module `mavrin2`, and what C++ keeps for it.
// The Lua library in use is compiled as C++: its errors are exceptions, which run destructors.
class LuaHost {
public:
    // Throws std::bad_alloc or std::runtime_error.
    LuaHost();
    LuaHost(const LuaHost&) = delete;
    LuaHost& operator=(const LuaHost&) = delete;
    // Disconnects and releases every object of the script.
    ~LuaHost();

    static LuaHost& Of(lua_State* lua);

    lua_State* Main() const { return main_; }
    // The coroutine that called into C++ last and waits for it: events are delivered on it.
    lua_State* Current() const { return current_; }

    // Each type is described once; all objects that tell nothing of theirs share one. Throws
    // CallError.
    const KnownType& TypeOf(IDispatch& object);
    const std::vector<std::unique_ptr<KnownType>>& Types() const { return types_; }

    ObjectValues& Objects() { return objects_; }

    // Windows of the script, which close with it at the latest.
    HostWindow* AddWindow(std::shared_ptr<HostWindow> window);
    void CloseWindow(HostWindow* window);

    // A number that no other connection of this script has.
    lua_Integer NewNumber() { return ++lastNumber_; }

    // While a function of C++ runs for a script.
    class Entry {
    public:
        explicit Entry(lua_State* lua) : host_(Of(lua)), before_(host_.current_) {
            host_.current_ = lua;
        }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry() { host_.current_ = before_; }

    private:
        LuaHost& host_;
        lua_State* before_;
    };

private:
    std::vector<std::unique_ptr<KnownType>> types_;
    const KnownType untold_ = {};
    ObjectValues objects_;
    std::vector<std::shared_ptr<HostWindow>> windows_;
    lua_Integer lastNumber_ = 0;
    lua_State* main_;
    lua_State* current_;
};

}  // namespace mavrin2::script
