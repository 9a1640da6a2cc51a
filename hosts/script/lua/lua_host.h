#pragma once

#include <lua.hpp>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "hosts/script/lua/interrupted_save.h"
#include "hosts/script/lua/object_values.h"
#include "hosts/script/window/host_window.h"

namespace mavrin2::script {

// A Lua state with Lua's standard library and the module `mavrin2`, and the C++ side of its values.
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
    // The coroutine that is calling into C++. Events are delivered on it.
    lua_State* Current() const { return current_; }

    // The type of an object; each is described once. Objects without type information share an
    // empty one. Throws CallError.
    const KnownType& TypeOf(IDispatch& object);
    const std::vector<std::unique_ptr<KnownType>>& Types() const { return types_; }

    ObjectValues& Objects() { return objects_; }

    // The script's windows; all close when the script ends.
    HostWindow* AddWindow(std::shared_ptr<HostWindow> window);
    void CloseWindow(HostWindow* window);
    // Paints what is invalid in each. Throws CallError when a control cannot draw.
    void PaintWindows();

    // Notes that a handler has failed. True if that is to be reported: the first time that it did
    // since the script called what fires the event.
    bool NoteFailure(lua_Integer connection, DISPID event) {
        handlersFailed_ = true;
        return reported_.emplace(connection, event).second;
    }
    bool HandlersFailed() const { return handlersFailed_; }

    // The save that runs, or null. Set by the call that it belongs to.
    InterruptedSave* Save() const { return save_; }
    void SetSave(InterruptedSave* save) { save_ = save; }

    // A number for a new connection.
    lua_Integer NewNumber() { return ++lastNumber_; }

    // Exists while a C++ function runs for a coroutine.
    class Entry {
    public:
        explicit Entry(lua_State* lua) : host_(Of(lua)), before_(host_.current_) {
            host_.current_ = lua;
            if (host_.depth_++ == 0) host_.reported_.clear();
        }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry() {
            host_.current_ = before_;
            --host_.depth_;
        }

    private:
        LuaHost& host_;
        lua_State* before_;
    };

private:
    std::vector<std::unique_ptr<KnownType>> types_;
    const KnownType untyped_ = {};
    ObjectValues objects_;
    std::vector<std::shared_ptr<HostWindow>> windows_;
    lua_Integer lastNumber_ = 0;
    int depth_ = 0;  // of C++ functions that call scripts that call C++ functions
    std::set<std::pair<lua_Integer, DISPID>> reported_;  // since the outermost of them began
    bool handlersFailed_ = false;
    InterruptedSave* save_ = nullptr;
    lua_State* main_;
    lua_State* current_;
};

}  // namespace mavrin2::script
