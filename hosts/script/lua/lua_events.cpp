#include "hosts/script/lua/lua_module.h"

#include <cstdio>
#include <memory>
#include <new>
#include <span>
#include <string>

#include "hosts/binding/event_connection.h"
#include "hosts/binding/late_binding.h"
#include "hosts/script/lua/lua_error.h"
#include "hosts/script/lua/lua_host.h"
#include "hosts/script/lua/lua_interrupt.h"
#include "hosts/script/lua/lua_object.h"
#include "hosts/script/lua/lua_value.h"
#include "platform/interrupt.h"

namespace mavrin2::script {
namespace {

constexpr const char* kConnectionType = "mavrin2.connection";

// An event to deliver. It refers to its connection by number: a pointer held by the component would
// keep alive what Lua is to collect.
struct Delivery {
    const void* Identity;
    lua_Integer Connection;
    DISPID Event;
    std::span<const VARIANT> Arguments;
};

void Report(const char* where, const char* message) {
    std::fprintf(stderr, "mavrin2: %s: %s\n", where, message ? message : "unknown error");
}

int Deliver(lua_State* lua) {
    const auto& delivery = *static_cast<const Delivery*>(lua_touserdata(lua, 1));
    // Held, since the handler may close it.
    const auto connection = FindConnection(lua, delivery.Identity, delivery.Connection);
    if (!connection) return 0;
    lua_pushcfunction(lua, &WithTraceback);
    PushHandlers(lua, delivery.Identity, delivery.Connection);
    if (lua_rawgeti(lua, -1, delivery.Event) != LUA_TFUNCTION) return 0;
    lua_remove(lua, -2);
    for (const VARIANT& argument : delivery.Arguments)
        PushVariant(lua, argument);
    const int count = static_cast<int>(delivery.Arguments.size());
    if (lua_pcall(lua, count, 0, -count - 2) == LUA_OK) return 0;
    if (!LuaHost::Of(lua).NoteFailure(delivery.Connection, delivery.Event)) return 0;
    const binding::DescribedMember* event = connection->Events().Find(delivery.Event, INVOKE_FUNC);
    Report(("error in the handler of " + (event ? event->Name : "an event")).c_str(),
           lua_tostring(lua, -1));
    return 0;
}

// Called from inside the component: no error may go further.
void DeliverToScript(LuaHost& host, Delivery delivery) {
    lua_State* lua = host.Current();
    if (!lua_checkstack(lua, 3)) return;
    lua_pushcfunction(lua, &Protected<&Deliver>);
    lua_pushlightuserdata(lua, &delivery);
    if (lua_pcall(lua, 1, 0, 0) != LUA_OK) {
        Report("an event was not delivered", lua_tostring(lua, -1));
        lua_pop(lua, 1);
    }
    // The interrupt may have ended the handler only.
    if (platform::Interrupted()) InterruptLua(host.Main());
}

std::string NamesOf(const binding::TypeDescription& events) {
    std::string names;
    for (const binding::DescribedMember& event : events.Members())
        names += (names.empty() ? "" : ", ") + event.Name;
    return names;
}

// Replaces the table of handlers by name on top of the stack with one by identifier.
void ResolveHandlers(lua_State* lua, const binding::TypeDescription& events) {
    lua_newtable(lua);
    lua_pushnil(lua);
    while (lua_next(lua, -3)) {
        const char* name = lua_type(lua, -2) == LUA_TSTRING ? lua_tostring(lua, -2) : nullptr;
        const binding::DescribedMember* event = name ? events.Find(name, INVOKE_FUNC) : nullptr;
        if (!event)
            luaL_error(lua, "unknown event '%s'; try %s", luaL_tolstring(lua, -2, nullptr),
                       NamesOf(events).c_str());
        if (!lua_isfunction(lua, -1))
            luaL_error(lua, "the handler of %s must be a function, not a %s", name,
                       luaL_typename(lua, -1));
        lua_rawseti(lua, -3, event->Id);
    }
    lua_replace(lua, -2);
}

// A script's reference to a connection, which the object owns.
struct ConnectionValue {
    const void* Identity;
    lua_Integer Number;
};

int CloseConnection(lua_State* lua) {
    const auto* value =
        static_cast<const ConnectionValue*>(luaL_checkudata(lua, 1, kConnectionType));
    DetachConnection(lua, value->Identity, value->Number);
    return 0;
}

void SetConnectionType(lua_State* lua) {
    static constexpr luaL_Reg kMembers[] = {{"__close", &Protected<&CloseConnection>},
                                            {"close", &Protected<&CloseConnection>},
                                            {nullptr, nullptr}};
    if (luaL_newmetatable(lua, kConnectionType)) {
        luaL_setfuncs(lua, kMembers, 0);
        lua_pushvalue(lua, -1);
        lua_setfield(lua, -2, "__index");
    }
    lua_setmetatable(lua, -2);
}

}  // namespace

void StopWhenInterrupted(lua_State* lua) {
    const ObjectValue& value = CheckObject(lua, -1);
    const auto events = binding::EventsOf(*value.Object);
    if (!events || !value.Type->Description.Find("Stop", INVOKE_FUNC)) return;
    const binding::TypeDescription description(*events);
    const binding::DescribedMember* progress = description.Find("BlockOperation", INVOKE_FUNC);
    if (!progress) return;
    // The connection goes with the object, which it therefore need not hold.
    IDispatch* const object = value.Object.Get();
    const auto connection = std::make_shared<binding::EventConnection>(
        *object, [&host = LuaHost::Of(lua), object, id = progress->Id](DISPID event,
                                                                       std::span<const VARIANT>) {
            if (event != id || !platform::Interrupted()) return;
            if (!host.Save() || host.Save()->PutAside())
                binding::LateBound(automation::ComPtr<IDispatch>(object)).Call("Stop");
        });
    lua_newtable(lua);
    AttachConnection(lua, lua_absindex(lua, -2), LuaHost::Of(lua).NewNumber(), connection);
}

int Connect(lua_State* lua) {
    const ObjectValue& value = CheckObject(lua, 1);
    luaL_checktype(lua, 2, LUA_TTABLE);
    lua_settop(lua, 2);

    LuaHost& host = LuaHost::Of(lua);
    const void* identity = value.Identity;
    const lua_Integer number = host.NewNumber();
    const auto connection = std::make_shared<binding::EventConnection>(
        *value.Object, [&host, identity, number](DISPID event, std::span<const VARIANT> arguments) {
            DeliverToScript(host, {identity, number, event, arguments});
        });
    ResolveHandlers(lua, connection->Events());
    AttachConnection(lua, 1, number, connection);
    new (lua_newuserdatauv(lua, sizeof(ConnectionValue), 0)) ConnectionValue{identity, number};
    SetConnectionType(lua);
    return 1;
}

}  // namespace mavrin2::script
