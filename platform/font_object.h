#pragma once

#include "platform/automation.h"
#include "platform/text.h"

namespace mavrin2::platform {

// What an object that hosts set tells of its font: one of the system's own, or any with members of
// the same names. What it does not tell, and all of it for null, is as in FontDescription().
FontDescription DescriptionOf(IUnknown* font);

// A font object with these values.
HRESULT NewFont(const FontDescription& description, REFIID iid, void** font);

}  // namespace mavrin2::platform
