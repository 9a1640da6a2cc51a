#pragma once

#include "platform/automation.h"

namespace mavrin2::platform {

// The type library that the build compiles into a module, where the system has hosts that look for
// it there. A module is given by the address of any code or data of its own. On a system without
// such libraries, loading gives S_FALSE and none, and there is nothing to register.

// Owned by the caller. Fails as the system does when the module has none.
HRESULT LoadModuleTypeLibrary(const void* address, ITypeLib** library);

// Makes the module's library known to the system, for hosts that look for it before they load the
// module, and for calls between threads.
HRESULT RegisterModuleTypeLibrary(const void* address);
// Takes that back; where nothing is known there is nothing to do.
HRESULT UnregisterTypeLibrary(REFGUID id, WORD major, WORD minor);

}  // namespace mavrin2::platform
