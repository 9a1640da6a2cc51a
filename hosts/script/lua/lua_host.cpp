#include "hosts/script/lua/lua_host.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <string>

#include "hosts/script/lua/lua_module.h"

namespace mavrin2::script {
namespace {

// os.exit would end the process without running destructors, and work files would stay. So the
// state is closed first, as at the end of the script.
int ExitClosingState(lua_State* lua) {
    lua_settop(lua, 1);
    lua_pushvalue(lua, lua_upvalueindex(1));
    lua_insert(lua, 1);
    lua_pushboolean(lua, 1);
    lua_call(lua, 2, 0);
    return 0;
}

int OpenLibraries(lua_State* lua) {
    luaL_openlibs(lua);
    lua_getglobal(lua, "os");
    lua_getfield(lua, -1, "exit");
    lua_pushcclosure(lua, &ExitClosingState, 1);
    lua_setfield(lua, -2, "exit");
    luaL_requiref(lua, "mavrin2", &OpenModule, 1);
    return 0;
}

}  // namespace

LuaHost::LuaHost() : main_(luaL_newstate()), current_(main_) {
    if (!main_) throw std::bad_alloc();
    // New coroutines get a copy.
    *static_cast<LuaHost**>(lua_getextraspace(main_)) = this;
    lua_pushcfunction(main_, &OpenLibraries);
    if (lua_pcall(main_, 0, 0, 0) == LUA_OK) return;
    const char* message = lua_tostring(main_, -1);
    const std::string reason = message ? message : "Lua cannot be started";
    lua_close(main_);
    throw std::runtime_error(reason);
}

LuaHost::~LuaHost() {
    lua_close(main_);
}

LuaHost& LuaHost::Of(lua_State* lua) {
    return **static_cast<LuaHost**>(lua_getextraspace(lua));
}

HostWindow* LuaHost::AddWindow(std::shared_ptr<HostWindow> window) {
    windows_.push_back(std::move(window));
    return windows_.back().get();
}

void LuaHost::CloseWindow(HostWindow* window) {
    const auto found = std::ranges::find(windows_, window, &std::shared_ptr<HostWindow>::get);
    if (found == windows_.end()) return;
    // Removed first: the control may call handlers while it is closed.
    const std::shared_ptr<HostWindow> closed = std::move(*found);
    windows_.erase(found);
}

void LuaHost::PaintWindows() {
    // Handlers of the script may open and close windows meanwhile.
    const auto windows = windows_;
    for (const auto& window : windows)
        if (window->IsOpen()) window->Update();
}

const KnownType& LuaHost::TypeOf(IDispatch& object) {
    automation::ComPtr<ITypeInfo> information = binding::TypeInformationOf(object);
    if (!information) return untyped_;
    const GUID id = binding::IdOf(*information);
    const auto found = std::ranges::find_if(
        types_, [&](const std::unique_ptr<KnownType>& type) { return IsEqualGUID(type->Id, id); });
    if (found != types_.end()) return **found;
    binding::TypeDescription description(*information);
    types_.push_back(
        std::make_unique<KnownType>(KnownType{id, std::move(information), std::move(description)}));
    return *types_.back();
}

}  // namespace mavrin2::script
