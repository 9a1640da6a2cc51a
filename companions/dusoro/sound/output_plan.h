#pragma once

#include <filesystem>

#include "companions/dusoro/sound/output_format.h"
#include "companions/dusoro/sound/sound_error.h"

namespace mavrin2::dusoro {

// One output file. The rate and channels of its format are those of the samples that its writer
// takes.
struct OutputPlan {
    OutputFormat Format;
    Container File = Container::Wav;
};

// What was chosen for the files to come.
struct OutputSettings {
    PcmFormat Document{44100, 2};
    OutputFormat Chosen;
};

// `type` chooses the kind of file; with Default the name's extension does. The chosen format
// applies to what can have it, and to unknown extensions; all others get rate and channels of the
// document, or the nearest that the kind of file can carry. FormatNotSupported for what is known
// and not written, AcmDriver when the chosen format that applies has no encoder.
Outcome<OutputPlan> PlanOutput(const std::filesystem::path& name, FormatType type,
                               const OutputSettings& settings);

}  // namespace mavrin2::dusoro
