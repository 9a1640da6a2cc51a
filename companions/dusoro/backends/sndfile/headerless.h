#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "companions/dusoro/sound/output_format.h"
#include "platform/files.h"

namespace mavrin2::dusoro {

// The libsndfile format of these samples in such a file; 0 for what it does not have.
int SndfileFormatOf(const OutputFormat& format, Container container);

// libsndfile has ADPCM with a WAV header only. Its files without one are such files as the host
// sees them, and whole ones as libsndfile does.
bool NeedsHiddenHeader(const OutputFormat& format, Container container);

// The header that libsndfile itself writes. Empty if it refuses.
std::vector<std::byte> WavHeader(const OutputFormat& format);

// `file`, which outlives it, behind `header`, the sizes in which become those of the file.
std::unique_ptr<platform::File> WithHeader(platform::File& file, std::vector<std::byte> header);
// Writes all but the first `header` bytes to `file`.
std::unique_ptr<platform::File> WithoutHeader(platform::File& file, std::size_t header);

}  // namespace mavrin2::dusoro
