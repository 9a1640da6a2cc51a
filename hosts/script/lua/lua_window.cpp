#include "hosts/script/lua/lua_module.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "hosts/script/lua/lua_error.h"
#include "hosts/script/lua/lua_host.h"
#include "hosts/script/lua/lua_object.h"
#include "hosts/script/window/host_window.h"
#include "hosts/script/window/png_file.h"

namespace mavrin2::script {
namespace {

constexpr const char* kWindowType = "mavrin2.window";

// The userdata holds a pointer that closing clears; the host owns the window.
HostWindow*& SlotAt(lua_State* lua, int argument) {
    return *static_cast<HostWindow**>(luaL_checkudata(lua, argument, kWindowType));
}

// Held, since drawing may fire events whose handlers close it.
std::shared_ptr<HostWindow> CheckWindow(lua_State* lua) {
    HostWindow* window = SlotAt(lua, 1);
    if (!window) throw std::runtime_error("the window is closed");
    return window->shared_from_this();
}

struct Size {
    int Width;
    int Height;
};

Size CheckSize(lua_State* lua) {
    const lua_Integer width = luaL_checkinteger(lua, 2);
    const lua_Integer height = luaL_checkinteger(lua, 3);
    if (!HostWindow::CanBe(width, height))
        throw std::runtime_error(
            "invalid window size; 0 to 32767 pixels in each direction, 67108864 in all");
    return {static_cast<int>(width), static_cast<int>(height)};
}

int Resize(lua_State* lua) {
    const Size size = CheckSize(lua);
    CheckWindow(lua)->Resize(size.Width, size.Height);
    return 0;
}

int Pixel(lua_State* lua) {
    const lua_Integer x = luaL_checkinteger(lua, 2);
    const lua_Integer y = luaL_checkinteger(lua, 3);
    const auto window = CheckWindow(lua);
    const platform::Pixels pixels = window->Update();
    luaL_argcheck(lua, x >= 0 && x < pixels.Width, 2, "outside the window");
    luaL_argcheck(lua, y >= 0 && y < pixels.Height, 3, "outside the window");
    lua_pushinteger(lua, pixels.Data[y * pixels.Stride + x]);
    return 1;
}

int Save(lua_State* lua) {
    const std::string file = luaL_checkstring(lua, 2);
    const auto window = CheckWindow(lua);
    try {
        WritePng(file, window->Update());
    } catch (const std::system_error& error) {
        throw std::runtime_error(file + ": " + error.code().message());
    }
    return 0;
}

// A field of the table that is the second argument.
lua_Integer IntegerField(lua_State* lua, const char* name) {
    lua_getfield(lua, 2, name);
    int whole = 0;
    const lua_Integer value = lua_tointegerx(lua, -1, &whole);
    if (whole == 0 && !lua_isnil(lua, -1))
        throw std::runtime_error(std::string("mouse: ") + name + " is not a whole number");
    lua_pop(lua, 1);
    if (value < -32768 || value > 32767)
        throw std::runtime_error(std::string("mouse: ") + name + " is outside -32768 to 32767");
    return value;
}

bool FlagField(lua_State* lua, const char* name) {
    lua_getfield(lua, 2, name);
    const bool flag = lua_toboolean(lua, -1) != 0;
    lua_pop(lua, 1);
    return flag;
}

platform::MouseAction ActionField(lua_State* lua) {
    using platform::MouseAction;
    static constexpr std::pair<std::string_view, MouseAction> kActions[] = {
        {"move", MouseAction::Move},
        {"down", MouseAction::Down},
        {"up", MouseAction::Up},
        {"double", MouseAction::DoubleClick},
        {"wheel", MouseAction::Wheel}};
    lua_getfield(lua, 2, "action");
    const char* text = lua_tostring(lua, -1);
    const std::string name = text ? text : "";
    lua_pop(lua, 1);
    const auto* const found = std::ranges::find(kActions, name, [](auto& a) { return a.first; });
    if (found == std::end(kActions))
        throw std::runtime_error("mouse: action is down, up, move, double or wheel");
    return found->second;
}

int Mouse(lua_State* lua) {
    using platform::MouseAction;
    luaL_checktype(lua, 2, LUA_TTABLE);
    platform::MouseEvent event;
    event.Action = ActionField(lua);
    event.X = static_cast<int>(IntegerField(lua, "x"));
    event.Y = static_cast<int>(IntegerField(lua, "y"));
    if (event.Action == MouseAction::Wheel) {
        event.Turn = static_cast<int>(IntegerField(lua, "delta"));
    } else if (event.Action != MouseAction::Move) {
        const lua_Integer button = IntegerField(lua, "button");
        if (button < 0 || button > 2) throw std::runtime_error("mouse: button is 1 or 2");
        event.Button = button == 2 ? platform::MouseButton::Right : platform::MouseButton::Left;
    }
    if (FlagField(lua, "shift")) event.Modifiers |= static_cast<int>(platform::Modifier::Shift);
    if (FlagField(lua, "ctrl")) event.Modifiers |= static_cast<int>(platform::Modifier::Control);
    CheckWindow(lua)->SendMouse(event);
    return 0;
}

// The system's pointers have numbers, those of the control names.
void PushPointer(lua_State* lua, platform::PointerShape shape) {
    using platform::PointerShape;
    switch (shape) {
        case PointerShape::LeftChannel:
            lua_pushliteral(lua, "left");
            break;
        case PointerShape::RightChannel:
            lua_pushliteral(lua, "right");
            break;
        case PointerShape::Grab:
            lua_pushliteral(lua, "grab");
            break;
        case PointerShape::MarkerZone:
            lua_pushliteral(lua, "marker");
            break;
        default:
            lua_pushinteger(lua, static_cast<lua_Integer>(shape));
    }
}

// A property, or a method of the metatable.
int Index(lua_State* lua) {
    const std::string_view name = luaL_checkstring(lua, 2);
    if (name == "cursor") {
        PushPointer(lua, CheckWindow(lua)->Pointer());
    } else if (name == "tooltip") {
        const std::string tip = CheckWindow(lua)->Tip();
        if (tip.empty())
            lua_pushnil(lua);
        else
            lua_pushlstring(lua, tip.data(), tip.size());
    } else {
        luaL_getmetatable(lua, kWindowType);
        lua_pushvalue(lua, 2);
        lua_rawget(lua, -2);
    }
    return 1;
}

int Close(lua_State* lua) {
    if (HostWindow* window = std::exchange(SlotAt(lua, 1), nullptr))
        LuaHost::Of(lua).CloseWindow(window);
    return 0;
}

void SetWindowType(lua_State* lua) {
    static constexpr luaL_Reg kMembers[] = {{"__close", &Protected<&Close>},
                                            {"__gc", &Protected<&Close>},
                                            {"__index", &Protected<&Index>},
                                            {"close", &Protected<&Close>},
                                            {"mouse", &Protected<&Mouse>},
                                            {"pixel", &Protected<&Pixel>},
                                            {"resize", &Protected<&Resize>},
                                            {"save", &Protected<&Save>},
                                            {nullptr, nullptr}};
    if (luaL_newmetatable(lua, kWindowType)) luaL_setfuncs(lua, kMembers, 0);
    lua_setmetatable(lua, -2);
}

bool ActiveOption(lua_State* lua, int argument) {
    if (lua_isnoneornil(lua, argument)) return true;
    luaL_checktype(lua, argument, LUA_TTABLE);
    lua_getfield(lua, argument, "active");
    const bool active = lua_isnil(lua, -1) || lua_toboolean(lua, -1);
    lua_pop(lua, 1);
    return active;
}

}  // namespace

int OpenWindow(lua_State* lua) {
    const ObjectValue& value = CheckObject(lua, 1);
    const Size size = CheckSize(lua);
    const bool active = ActiveOption(lua, 4);
    // A pointer is all that Lua keeps. NOLINTNEXTLINE(bugprone-sizeof-expression)
    auto** slot = static_cast<HostWindow**>(lua_newuserdatauv(lua, sizeof(HostWindow*), 0));
    *slot = nullptr;
    SetWindowType(lua);
    const automation::ComPtr<IDispatch> object = value.Object;
    *slot = LuaHost::Of(lua).AddWindow(
        std::make_shared<HostWindow>(*object, size.Width, size.Height, active));
    return 1;
}

}  // namespace mavrin2::script
