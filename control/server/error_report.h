#pragma once

#include "control/interfaces/enumerations.h"

namespace mavrin2::server {

// The failing status that goes with a code; success for NOERRORS. For a failure it leaves error
// information for the caller, naming IMavrin2 and describing what happened. A code that the table
// does not know is reported like UNEXPECTED.
HRESULT ReportError(interfaces::ErrorConstants code);

}  // namespace mavrin2::server
