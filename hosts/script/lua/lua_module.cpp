#include "hosts/script/lua/lua_module.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "hosts/script/lua/lua_call.h"
#include "hosts/script/lua/lua_error.h"
#include "hosts/script/lua/lua_object.h"
#include "platform/interrupt.h"
#include "platform/posting.h"

namespace mavrin2::script {
namespace {

using std::chrono::milliseconds;

// mavrin2.create([progid])
int Create(lua_State* lua) {
    PushObject(lua, *binding::CreateObject(luaL_optstring(lua, 1, binding::kEditorProgId)));
    StopWhenInterrupted(lua);
    return 1;
}

// mavrin2.put(object, name, [index…,] value)
int Put(lua_State* lua) {
    const ObjectValue& value = CheckObject(lua, 1);
    const char* name = luaL_checkstring(lua, 2);
    luaL_checkany(lua, 3);
    const automation::ComPtr<IDispatch> object = value.Object;
    PutMember(lua, *object, value.Type->Description, name, 3);
    return 0;
}

// mavrin2.pump(milliseconds): less than 0 is 0, and more than 31 years is that.
int Pump(lua_State* lua) {
    constexpr milliseconds kLongestWait(50);  // before an interrupt is noticed
    using Clock = std::chrono::steady_clock;
    const auto queue = platform::PostingQueue::OfThisThread();
    const lua_Number asked = luaL_checknumber(lua, 1);
    luaL_argcheck(lua, !std::isnan(asked), 1, "a number of milliseconds expected, got NaN");
    const lua_Number wanted = std::clamp<lua_Number>(asked, 0, 1e12);
    const auto end = Clock::now() + milliseconds(static_cast<std::int64_t>(wanted));
    LuaHost& host = LuaHost::Of(lua);
    // As in any message loop, windows are painted after the messages that wait.
    queue->Pump(milliseconds(0));
    host.PaintWindows();
    milliseconds left{};
    do {
        left = std::chrono::ceil<milliseconds>(end - Clock::now());
        queue->Pump(std::clamp(left, milliseconds(0), kLongestWait));
        host.PaintWindows();
        if (platform::Interrupted()) return luaL_error(lua, "interrupted");
    } while (left > kLongestWait);
    return 0;
}

}  // namespace

int OpenModule(lua_State* lua) {
    static constexpr luaL_Reg kFunctions[] = {{"connect", &Protected<&Connect>},
                                              {"create", &Protected<&Create>},
                                              {"members", &Protected<&Members>},
                                              {"pump", &Protected<&Pump>},
                                              {"put", &Protected<&Put>},
                                              {"window", &Protected<&OpenWindow>},
                                              {nullptr, nullptr}};
    luaL_newlib(lua, kFunctions);
    PushConstants(lua);
    lua_setfield(lua, -2, "const");
    return 1;
}

}  // namespace mavrin2::script
