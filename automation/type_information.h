#pragma once

#include "automation/com_ptr.h"
#include "automation/interface_description.h"

namespace mavrin2::automation {

// What an object tells a host of itself: from the type library compiled into this module where the
// system has such, otherwise from the one made of the descriptions. Both say the same. They throw
// StatusError when the library is missing or does not know what is asked for.

// The type information of one interface within its library; empty when it belongs to none.
ComPtr<ITypeInfo> TypeInformationOf(const InterfaceDescription& description);

// The same for the class of that identifier.
ComPtr<ITypeInfo> TypeInformationOfClass(const LibraryDescription& library, REFCLSID id);

}  // namespace mavrin2::automation
