#pragma once

#include <lua.hpp>
#include <stdexcept>

#include "automation/variant.h"
#include "hosts/script/late_binding/type_description.h"
#include "platform/automation.h"

namespace mavrin2::script {

// A Lua value that cannot stand for an automation value, or the reverse.
struct ConversionError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The Lua value at `index` for a parameter of the wanted type. Numbers, texts and objects keep
// their own type, since the component converts them; the wanted type decides where it has to: a
// number for a truth value is that 16-bit value, and a table becomes an array of the wanted
// elements.
automation::Variant ToVariant(lua_State* lua, int index, const DescribedType& wanted);

// Truth values arrive as the number that is stored, arrays as tables counted from 1.
void PushVariant(lua_State* lua, const VARIANT& value);

}  // namespace mavrin2::script
