#pragma once

#include "platform/automation.h"
#include "platform/text.h"

namespace mavrin2::platform {

// What an object set by a host says about its font: one of the system's, or any with members of
// the same names. What it leaves out, and all of it for null, is as in FontDescription().
FontDescription DescriptionOf(IUnknown* font);

// A font object with these values.
HRESULT NewFont(const FontDescription& description, REFIID iid, void** font);

}  // namespace mavrin2::platform
