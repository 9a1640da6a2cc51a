#pragma once

#include <memory>

#include "platform/linux/font_file.h"
#include "platform/text.h"

struct FT_LibraryRec_;

namespace mavrin2::platform {

// Shared by the fonts of one thread; null when there is no memory for it.
std::shared_ptr<FT_LibraryRec_> NewFontLibrary();

// The file's font in the description's size; null when the file is no scalable font. It
// measures as the other system does: widths are sums of whole pixels, cells have the height that
// the font states for that system.
std::shared_ptr<const Font> NewScaledFont(std::shared_ptr<FT_LibraryRec_> library,
                                          const FontFile& file, const FontDescription& description);

}  // namespace mavrin2::platform
