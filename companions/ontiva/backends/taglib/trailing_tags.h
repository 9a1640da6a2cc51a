#pragma once

#include "companions/ontiva/libraries/libraries.h"

namespace mavrin2::ontiva {

TrailerContent ReadTrailingTags(EditedFile& file);
// ID3v1 is there afterwards if any of its fields has a text; an APE tag is kept up to date.
void WriteTrailingTags(EditedFile& file, const Fields& texts);

}  // namespace mavrin2::ontiva
