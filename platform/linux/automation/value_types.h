#pragma once

#include "platform/linux/automation/variant.h"

namespace mavrin2::platform::automation {

// The bytes that a value of this plain type takes in a variant, an array or behind a reference; 0
// for what is no type of a value.
std::size_t ElementSize(VARTYPE type);

// Whether a variant may carry this type with these modifiers.
bool IsVariantType(VARTYPE type);

// The two ways to treat elements and variants by their type. Both work on one value of a plain
// type in place. Copying makes what bits were copied into an owner of its own (a string is
// duplicated, an object referenced) and leaves a zeroed value when it fails.
HRESULT OwnCopiedValue(VARTYPE type, void* value);
void ReleaseValue(VARTYPE type, void* value);

}  // namespace mavrin2::platform::automation
