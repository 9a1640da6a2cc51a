#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "companions/dusoro/sound/format_type.h"
#include "companions/dusoro/sound/output_format.h"
#include "companions/dusoro/sound/sound_error.h"

namespace mavrin2::dusoro {

enum class DecoderKind : std::uint8_t { Sndfile, Flac, Ffmpeg };

// Which libraries are asked for a file, in which order.
struct ReadingPlan {
    std::vector<DecoderKind> Candidates;
    // What the data is, where it has no header.
    std::optional<OutputFormat> Headerless = {};
};

// How many bytes of a file PlanReading wants to see.
inline constexpr std::size_t kHeadSize = 16;

// Content decides: the name and `type` count only where there is no header that could tell, and
// `type` VOX and RAW always. `chosen`, the format for files to come, is also that of files without
// a header, if it is of their kind. `head` are the first bytes of the file, not empty.
Outcome<ReadingPlan> PlanReading(std::span<const std::byte> head, const std::filesystem::path& name,
                                 FormatType type, const OutputFormat& chosen);

// The name's extension in lower case, without the dot; empty without one.
std::string ExtensionOf(const std::filesystem::path& name);

}  // namespace mavrin2::dusoro
