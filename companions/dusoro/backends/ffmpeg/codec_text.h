#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "companions/dusoro/backends/ffmpeg/av_handles.h"
#include "companions/dusoro/sound/output_format.h"

namespace mavrin2::dusoro {

// What an editor shows of a coding: bits where it keeps every sample, else the bit rate.
struct CodingText {
    bool Pcm = false;        // plain integers
    std::int32_t Bits = 16;  // of a sample; 16 for codings that do not keep them
    std::string Text;
    std::optional<OutputFormat> Format;  // where such files are written here
};

CodingText DescribeCoding(const AVFormatContext& context, const AVStream& stream, std::int32_t rate,
                          std::int32_t channels);

}  // namespace mavrin2::dusoro
