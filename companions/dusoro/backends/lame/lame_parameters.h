#pragma once

#include <lame/lame.h>

#include "companions/dusoro/sound/output_format.h"

namespace mavrin2::dusoro {

// Sets the encoder to a constant bit rate. With 0 one is chosen that is transparent for most ears.
void ApplyConstantRate(lame_global_flags* encoder, const OutputFormat& format);

// Sets the encoder to what a host has written, for sound of that rate and those channels; what it
// refuses becomes the nearest that it takes.
void ApplySettings(lame_global_flags* encoder, const contracts::LameSettings& settings,
                   std::int32_t rate, std::int32_t channels);

}  // namespace mavrin2::dusoro
