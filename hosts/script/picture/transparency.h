#pragma once

#include "platform/pixels.h"

namespace mavrin2::script {

// Finds out what is transparent in a picture that was drawn over black and over white, also in part
// as the edges of letters are. The pixels of the first become 0xAARRGGBB, with opacity AA.
void FindTransparency(const platform::Pixels& overBlack, const platform::Pixels& overWhite);

}  // namespace mavrin2::script
