#pragma once

#include "automation/com_ptr.h"
#include "automation/interface_description.h"

namespace mavrin2::automation {

// The type library that hosts browse, made from descriptions. Its entries are in the order
// enumerations, interfaces, classes.
ComPtr<ITypeLib> MakeTypeLibrary(const LibraryDescription& library);

}  // namespace mavrin2::automation
