#include <algorithm>
#include <cstdio>
#include <lua.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/input_file.h"
#include "hosts/script/lua/lua_error.h"
#include "hosts/script/lua/lua_host.h"
#include "hosts/script/lua/lua_interrupt.h"
#include "platform/interrupt.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 run [--keep-going] SCRIPT.lua [ARGUMENT...]

Runs a Lua 5.4 script, or standard input if that is -, with Lua's standard library, the arguments in
`arg` and these functions:

  mavrin2.create([progid])       create a sound editor, or another component
  object.Name, object.Name = v   read, write a property
  object:Name(a, b)              call a method, or read an indexed property
  mavrin2.put(object, "Name", index, v)   write an indexed property
  mavrin2.const.NAME             a constant of an enumeration
  mavrin2.connect(object, {Event = function(...) end})   handle events until close() of the result
  mavrin2.pump(milliseconds)     wait, delivering events and painting windows
  mavrin2.members(object)        list the properties, methods and events of an object
  mavrin2.window(object, width, height)   show a control in a window without a screen; the result has
      resize(width, height), pixel(x, y), save("FILE.png") and close()

A failing call raises a table {status =, description =}. An error in a handler is printed once for each
call, which continues; the script has failed then, unless --keep-going is given.
Exit codes: 0 success, 1 the script failed, 2 usage error.
)";

constexpr std::string_view kKeepGoing = "--keep-going";
constexpr std::string_view kFlags[] = {kKeepGoing};

struct Script {
    std::vector<std::string> Arguments;  // its name, then what it gets
    std::optional<std::string> Text;     // not if it is a file
};

int Load(lua_State* lua, const Script& script) {
    if (!script.Text) return luaL_loadfile(lua, script.Arguments.front().c_str());
    std::string_view text = *script.Text;
    // As from a file, without a first line for the shell.
    if (text.starts_with('#')) text.remove_prefix(std::min(text.find('\n'), text.size()));
    return luaL_loadbuffer(lua, text.data(), text.size(), "=stdin");
}

// Runs the script, which is passed as a light userdata.
int RunScript(lua_State* lua) {
    const auto& script = *static_cast<const Script*>(lua_touserdata(lua, 1));
    const auto& arguments = script.Arguments;
    lua_settop(lua, 0);
    lua_createtable(lua, static_cast<int>(arguments.size()) - 1, 1);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        lua_pushlstring(lua, arguments[i].data(), arguments[i].size());
        lua_rawseti(lua, 1, static_cast<lua_Integer>(i));
    }
    lua_setglobal(lua, "arg");

    lua_pushcfunction(lua, &WithTraceback);
    if (Load(lua, script) != LUA_OK) return lua_error(lua);
    const int count = static_cast<int>(arguments.size()) - 1;
    luaL_checkstack(lua, count, "too many arguments");
    for (int i = 1; i <= count; ++i)
        lua_pushlstring(lua, arguments[static_cast<std::size_t>(i)].data(),
                        arguments[static_cast<std::size_t>(i)].size());
    if (lua_pcall(lua, count, 0, 1) != LUA_OK) return lua_error(lua);
    return 0;
}

int Run(const CommandLine& line) {
    if (line.Operands().empty()) throw UsageError("run needs a script");
    Script script{line.Operands(), {}};
    if (script.Arguments.front() == kStandardStream) script.Text = TextOfStandardInput();
    LuaHost host;
    lua_State* lua = host.Main();
    const InterruptibleLua interruptible(lua);
    lua_pushcfunction(lua, &RunScript);
    lua_pushlightuserdata(lua, &script);
    if (lua_pcall(lua, 1, 0, 0) == LUA_OK)
        return host.HandlersFailed() && !line.Has(kKeepGoing) ? kFailure : kSuccess;
    const char* message = lua_tostring(lua, -1);
    std::fflush(stdout);
    // Without a reader the output ends early, which is no failure of the script.
    if (!(platform::Interrupted() && std::ferror(stdout)))
        std::fprintf(stderr, "mavrin2: %s\n", message ? message : "the script failed");
    return kFailure;
}

}  // namespace

const Command kRunCommand{"run", kHelp, {}, true, &Run, kFlags};

}  // namespace mavrin2::script
