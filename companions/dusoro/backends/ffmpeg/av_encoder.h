#pragma once

#include "companions/dusoro/backends/ffmpeg/av_handles.h"
#include "companions/dusoro/sound/output_format.h"

namespace mavrin2::dusoro {

// An opened encoder for exactly this format; null when FFmpeg has none or refuses. The container
// may want the coding's header apart from its data.
AvCodecContextPtr OpenEncoder(const OutputFormat& format, bool headerApart);

// The same with the nearest bit rates that FFmpeg takes, which become those of `format`.
AvCodecContextPtr OpenNearestEncoder(OutputFormat& format, bool headerApart);

}  // namespace mavrin2::dusoro
