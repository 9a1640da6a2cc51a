#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "companions/dusoro/sound/format_type.h"
#include "companions/dusoro/sound/pcm_format.h"
#include "companions/dusoro/sound/sound_error.h"

namespace mavrin2::dusoro {

enum class Container : std::uint8_t { Wav, Aiff, Flac, OggVorbis, Opus, Mp3, Vox };

// One output file: its kind and what it carries.
struct OutputPlan {
    Container Kind = Container::Wav;
    PcmFormat Carried;
    std::int32_t BitsPerSample = 16;
};

// What was chosen for the files to come.
struct OutputSettings {
    PcmFormat Document{44100, 2};
    std::int32_t VoxRate = 8000;
    // Of WAV and AIFF: 8, 16, 24 or 32.
    std::int32_t BitsPerSample = 16;
    std::optional<PcmFormat> Pcm;  // chosen instead of VOX
};

// `type` chooses the kind of file; with Default the name's extension does. An unknown extension
// gets the chosen format: WAV for PCM, otherwise VOX. Rate and channels stay those of the document
// unless the kind of file cannot carry them: then the nearest that it can. FormatNotSupported for
// what is known and not written.
Outcome<OutputPlan> PlanOutput(const std::filesystem::path& name, FormatType type,
                               const OutputSettings& settings);

}  // namespace mavrin2::dusoro
