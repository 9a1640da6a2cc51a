#pragma once

#include <string>

#include "automation/interface_description.h"

namespace mavrin2::automation {

// A library as the text that a type-library compiler reads: everything that the description says,
// in its order. Throws std::invalid_argument for what the compiler would get wrong.
std::string IdlOf(const LibraryDescription& library);

}  // namespace mavrin2::automation
