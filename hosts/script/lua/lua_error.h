#pragma once

#include <lua.hpp>
#include <new>
#include <stdexcept>

#include "automation/guarded.h"
#include "hosts/binding/call_error.h"
#include "hosts/binding/late_binding.h"
#include "hosts/script/lua/file_error.h"
#include "hosts/script/lua/lua_host.h"

namespace mavrin2::script {

// Pushes what a failing call raises: {status =, description =}, which prints as a sentence.
void PushError(lua_State* lua, HRESULT status, const char* description);
// The same with the file, and with the system's reason where there is one.
void PushError(lua_State* lua, const FileError& error);

// Pushes a message that begins with the line of the script that runs.
void PushMessage(lua_State* lua, const char* message);

// A message handler: the error as text with a traceback.
int WithTraceback(lua_State* lua);

// Wraps a function that throws C++ exceptions as one that raises Lua errors.
template <int (*Body)(lua_State*)>
int Protected(lua_State* lua) {
    const LuaHost::Entry entry(lua);
    // Lua's own errors are exceptions of another type and pass.
    try {
        return Body(lua);
    } catch (const binding::CallError& error) {
        PushError(lua, error.Status(), error.what());
    } catch (const FileError& error) {
        PushError(lua, error);
    } catch (const automation::StatusError& error) {
        PushError(lua, error.Status, binding::StatusText(error.Status).c_str());
    } catch (const std::bad_alloc&) {
        PushMessage(lua, "not enough memory");
    } catch (const std::exception& error) {
        PushMessage(lua, error.what());
    }
    return lua_error(lua);
}

}  // namespace mavrin2::script
