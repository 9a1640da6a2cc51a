#pragma once

#include "control/server/control_parts.h"

namespace mavrin2::server {

// Makes the parts of a control in their fixed order, stopping at the first that cannot be made: the
// user is told in a message box, and the result is that part's failure.
HRESULT RunConstructionSteps(ControlParts& parts);

}  // namespace mavrin2::server
