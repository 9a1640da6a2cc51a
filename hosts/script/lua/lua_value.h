#pragma once

#include <lua.hpp>
#include <stdexcept>

#include "automation/variant.h"
#include "hosts/binding/type_description.h"
#include "platform/automation.h"

namespace mavrin2::script {

// A value that cannot be converted between Lua and automation.
struct ConversionError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Converts the Lua value at `index` for a parameter of the wanted type. Numbers, strings and
// objects keep their type, since the component converts them. Two cases depend on the wanted type:
// a number for a boolean is that 16-bit value, and a table becomes an array of the wanted elements.
// `depth` is the number of tables around the value.
automation::Variant ToVariant(lua_State* lua, int index, const binding::DescribedType& wanted,
                              int depth = 0);

// Pushes a value. Booleans become the number that is stored, arrays tables indexed from 1.
void PushVariant(lua_State* lua, const VARIANT& value);

}  // namespace mavrin2::script
