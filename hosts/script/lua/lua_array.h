#pragma once

#include <lua.hpp>

#include "automation/variant.h"
#include "platform/automation.h"

namespace mavrin2::script {

// Automation arrays of one dimension as Lua tables indexed from 1. Sound travels this way, so
// numbers are moved without a variant for each. Both throw ConversionError.

// An array of `type` from the table at `index`; VT_VARIANT takes elements of any kind. `depth` is
// the number of tables around this one.
automation::Variant ArrayOfTable(lua_State* lua, int index, VARTYPE type, int depth);

// Pushes the elements as a table; an empty one for null.
void PushArray(lua_State* lua, SAFEARRAY* array);

}  // namespace mavrin2::script
