#pragma once

#include "automation/com_ptr.h"
#include "automation/interface_description.h"

namespace mavrin2::automation {

// The type library that hosts browse, made from descriptions. Its entries stand in the order
// enumerations, interfaces, classes.
ComPtr<ITypeLib> MakeTypeLibrary(const LibraryDescription& library);

// The type information of one interface within its library; empty when it belongs to none.
ComPtr<ITypeInfo> TypeInformationOf(const InterfaceDescription& description);

// The same for the class of that identifier.
ComPtr<ITypeInfo> TypeInformationOfClass(const LibraryDescription& library, REFCLSID id);

}  // namespace mavrin2::automation
