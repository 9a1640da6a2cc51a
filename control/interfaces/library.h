#pragma once

#include "automation/interface_description.h"

namespace mavrin2::interfaces {

// Everything that the control's module publishes.
const automation::LibraryDescription& ControlLibrary();

}  // namespace mavrin2::interfaces
