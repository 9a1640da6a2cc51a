#pragma once

#include <optional>
#include <string>

#include "platform/text.h"

namespace mavrin2::platform {

// A font of this system, and what it lacks of the description.
struct FontFile {
    std::string Path;
    int Index = 0;  // of the face in the file
    bool NeedsSlant = false;
    bool NeedsWeight = false;
};

// The nearest that the system's settings name; nothing where there is no font at all.
std::optional<FontFile> FindFontFile(const FontDescription& description);

}  // namespace mavrin2::platform
