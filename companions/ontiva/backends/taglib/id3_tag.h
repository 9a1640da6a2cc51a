#pragma once

#include "companions/ontiva/libraries/libraries.h"

namespace mavrin2::ontiva {

Id3Content ReadId3Tag(std::string_view bytes, std::int32_t rate);
std::string RenderId3Tag(std::string_view present, const SoundInfo& info, std::int32_t rate);

}  // namespace mavrin2::ontiva
