#pragma once

#include <lua.hpp>

namespace mavrin2::script {

// Pushes the table `mavrin2.const`. Its fields are the members of all enumerations in the type
// libraries of the objects that the script has held so far and of the editor; they are read when
// one is first asked for.
void PushConstants(lua_State* lua);

}  // namespace mavrin2::script
