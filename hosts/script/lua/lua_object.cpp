#include "hosts/script/lua/lua_object.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "automation/com_ptr.h"
#include "hosts/script/lua/lua_call.h"
#include "hosts/script/lua/lua_error.h"

namespace mavrin2::script {
namespace {

using automation::ComPtr;

constexpr const char* kObjectType = "mavrin2.object";
// Registry keys by address.
constexpr char kObjectsByIdentity = 0;

// The userdata holds a pointer that collection clears: finalizers of other values may still reach
// it.
ObjectValue** SlotAt(lua_State* lua, int index) {
    return static_cast<ObjectValue**>(luaL_testudata(lua, index, kObjectType));
}

ObjectValue* ValueAt(lua_State* lua, int index) {
    ObjectValue** slot = SlotAt(lua, index);
    return slot ? *slot : nullptr;
}

int Collect(lua_State* lua) {
    if (ObjectValue* value = std::exchange(*SlotAt(lua, 1), nullptr))
        LuaHost::Of(lua).Objects().Release(value);
    return 0;
}

int CallMethod(lua_State* lua) {
    const auto& member =
        *static_cast<const binding::DescribedMember*>(lua_touserdata(lua, lua_upvalueindex(1)));
    const void* type = lua_touserdata(lua, lua_upvalueindex(2));
    const ObjectValue* value = ValueAt(lua, 1);
    if (!value || value->Type != type)
        return luaL_error(lua, "%s is a method; call it with a colon: object:%s(...)",
                          member.Name.c_str(), member.Name.c_str());
    // Held, since a handler may release it.
    const ComPtr<IDispatch> object = value->Object;
    return CallMember(lua, *object, member, 2);
}

// One function per member, so that a loop does not create one at each call.
void PushMethod(lua_State* lua, const KnownType& type, const binding::DescribedMember& member) {
    if (lua_rawgetp(lua, LUA_REGISTRYINDEX, &member) == LUA_TFUNCTION) return;
    lua_pop(lua, 1);
    lua_pushlightuserdata(lua, const_cast<binding::DescribedMember*>(&member));
    lua_pushlightuserdata(lua, const_cast<KnownType*>(&type));
    lua_pushcclosure(lua, &Protected<&CallMethod>, 2);
    lua_pushvalue(lua, -1);
    lua_rawsetp(lua, LUA_REGISTRYINDEX, &member);
}

int ReadMember(lua_State* lua) {
    const ObjectValue& value = CheckObject(lua, 1);
    const binding::TypeDescription& type = value.Type->Description;
    const std::string name = luaL_checkstring(lua, 2);
    const ComPtr<IDispatch> object = value.Object;
    if (!type.IsKnown()) return ReadByName(lua, *object, name);
    const binding::DescribedMember* member = type.Find(name, INVOKE_FUNC | INVOKE_PROPERTYGET);
    if (!member) {
        const binding::DescribedMember* other = type.Find(name, binding::kAnyKind);
        if (other)
            throw binding::CallError(DISP_E_MEMBERNOTFOUND,
                                     type.Name() + "." + other->Name + " is write-only.");
        throw binding::CallError(DISP_E_UNKNOWNNAME,
                                 type.Name() + " has no member '" + name + "'.");
    }
    if (member->Kind == INVOKE_FUNC || !member->Parameters.empty()) {
        PushMethod(lua, *value.Type, *member);
        return 1;
    }
    return CallMember(lua, *object, *member, 3);
}

int WriteMember(lua_State* lua) {
    const ObjectValue& value = CheckObject(lua, 1);
    const std::string name = luaL_checkstring(lua, 2);
    const ComPtr<IDispatch> object = value.Object;
    PutMember(lua, *object, value.Type->Description, name, 3);
    return 0;
}

int Print(lua_State* lua) {
    const ObjectValue* value = ValueAt(lua, 1);
    lua_pushfstring(lua, "%s: %p",
                    value ? value->Type->Description.Name().c_str() : "released object",
                    lua_topointer(lua, 1));
    return 1;
}

void SetObjectType(lua_State* lua) {
    static constexpr luaL_Reg kMembers[] = {{"__gc", &Protected<&Collect>},
                                            {"__index", &Protected<&ReadMember>},
                                            {"__newindex", &Protected<&WriteMember>},
                                            {"__tostring", &Protected<&Print>},
                                            {nullptr, nullptr}};
    if (luaL_newmetatable(lua, kObjectType)) {
        luaL_setfuncs(lua, kMembers, 0);
        // Keeps scripts from calling these functions with other values.
        lua_pushboolean(lua, 0);
        lua_setfield(lua, -2, "__metatable");
    }
    lua_setmetatable(lua, -2);
}

// The table from identities to values. It does not keep the values.
void PushObjectsByIdentity(lua_State* lua) {
    if (lua_rawgetp(lua, LUA_REGISTRYINDEX, &kObjectsByIdentity) == LUA_TTABLE) return;
    lua_pop(lua, 1);
    lua_newtable(lua);
    lua_createtable(lua, 0, 1);
    lua_pushliteral(lua, "v");
    lua_setfield(lua, -2, "__mode");
    lua_setmetatable(lua, -2);
    lua_pushvalue(lua, -1);
    lua_rawsetp(lua, LUA_REGISTRYINDEX, &kObjectsByIdentity);
}

// Pushes the value with this identity, or nil.
ObjectValue* PushKnown(lua_State* lua, const void* identity) {
    PushObjectsByIdentity(lua);
    lua_rawgetp(lua, -1, identity);
    lua_remove(lua, -2);
    return ValueAt(lua, -1);
}

}  // namespace

void PushObject(lua_State* lua, IDispatch& object) {
    luaL_checkstack(lua, 6, "too many objects");
    const void* identity = ComPtr<IDispatch>(&object).As<IUnknown>().Get();
    if (PushKnown(lua, identity)) return;
    lua_pop(lua, 1);

    LuaHost& host = LuaHost::Of(lua);
    auto value = std::make_unique<ObjectValue>(
        ObjectValue{ComPtr<IDispatch>(&object), identity, &host.TypeOf(object), {}});
    auto** slot = static_cast<ObjectValue**>(lua_newuserdatauv(lua, sizeof(void*), 1));
    *slot = nullptr;
    SetObjectType(lua);
    // The handlers of each connection, by its number.
    lua_newtable(lua);
    lua_setiuservalue(lua, -2, 1);
    *slot = host.Objects().Add(std::move(value));

    PushObjectsByIdentity(lua);
    lua_pushvalue(lua, -2);
    lua_rawsetp(lua, -2, identity);
    lua_pop(lua, 1);
}

IDispatch* ToObject(lua_State* lua, int index) {
    const ObjectValue* value = ValueAt(lua, index);
    return value ? value->Object.Get() : nullptr;
}

ObjectValue& CheckObject(lua_State* lua, int argument) {
    auto* slot = static_cast<ObjectValue**>(luaL_checkudata(lua, argument, kObjectType));
    if (!*slot) throw std::runtime_error("the object was released");
    return **slot;
}

void AttachConnection(lua_State* lua, int index, lua_Integer number,
                      std::shared_ptr<binding::EventConnection> connection) {
    ObjectValue& value = CheckObject(lua, index);
    lua_getiuservalue(lua, index, 1);
    lua_insert(lua, -2);
    lua_rawseti(lua, -2, number);
    lua_pop(lua, 1);
    value.Connections.emplace(number, std::move(connection));
}

std::shared_ptr<binding::EventConnection> FindConnection(lua_State* lua, const void* identity,
                                                         lua_Integer number) {
    const ObjectValue* value = PushKnown(lua, identity);
    lua_pop(lua, 1);
    if (!value) return nullptr;
    const auto found = value->Connections.find(number);
    return found == value->Connections.end() ? nullptr : found->second;
}

void PushHandlers(lua_State* lua, const void* identity, lua_Integer number) {
    PushKnown(lua, identity);
    lua_getiuservalue(lua, -1, 1);
    lua_rawgeti(lua, -1, number);
    lua_replace(lua, -3);
    lua_pop(lua, 1);
}

void DetachConnection(lua_State* lua, const void* identity, lua_Integer number) {
    const auto connection = FindConnection(lua, identity, number);
    if (!connection) return;
    connection->Close();
    // Closing may have released the object.
    if (ObjectValue* value = PushKnown(lua, identity)) {
        value->Connections.erase(number);
        lua_getiuservalue(lua, -1, 1);
        lua_pushnil(lua);
        lua_rawseti(lua, -2, number);
        lua_pop(lua, 1);
    }
    lua_pop(lua, 1);
}

}  // namespace mavrin2::script
