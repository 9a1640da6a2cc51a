#pragma once

#include <filesystem>
#include <memory>

#include "companions/dusoro/sound/format_converter.h"
#include "companions/dusoro/sound/format_type.h"
#include "companions/dusoro/sound/output_plan.h"
#include "companions/dusoro/sound/sound_backends.h"
#include "companions/dusoro/sound/sound_error.h"
#include "companions/dusoro/sound/sound_reader.h"
#include "companions/dusoro/sound/sound_writer.h"
#include "platform/files.h"
#include "platform/replacement_file.h"

namespace mavrin2::dusoro {

// Opens and creates sound files of every kind, with the library that each needs.
class SoundFiles {
public:
    SoundFiles(std::shared_ptr<platform::FileSystem> inputs,
               std::shared_ptr<platform::ReplacementFiles> outputs, SoundBackends backends)
        : inputs_(std::move(inputs)),
          outputs_(std::move(outputs)),
          backends_(std::move(backends)) {}

    // A reader at the file's own rate, mono or stereo. `chosen` says how files without a header are
    // to be read. With `check` the reader finds all the faults that it can tell.
    Outcome<std::unique_ptr<SoundReader>> Open(const std::filesystem::path& path, FormatType type,
                                               const OutputFormat& chosen = {},
                                               bool check = false) const;

    // A writer whose file takes the name, in place of an older one, when Finish succeeds; without
    // that nothing is left of it.
    Outcome<std::unique_ptr<SoundWriter>> Create(const std::filesystem::path& path, FormatType type,
                                                 const OutputSettings& settings) const;

    // Whether there is an encoder that has exactly this format.
    bool Has(const OutputFormat& format) const;

    // Puts a conversion between `reader` and a caller that reads `wanted`, or `writer` and
    // one that delivers `given`, where one is needed; neither has begun. False, and nothing has
    // changed, when it cannot be converted.
    bool ReadAs(std::unique_ptr<SoundReader>& reader, PcmFormat wanted) const;
    bool WriteFrom(std::unique_ptr<SoundWriter>& writer, PcmFormat given) const;

private:
    std::unique_ptr<FormatConverter> Converter(PcmFormat from, PcmFormat to) const;

    std::shared_ptr<platform::FileSystem> inputs_;
    std::shared_ptr<platform::ReplacementFiles> outputs_;
    SoundBackends backends_;
};

}  // namespace mavrin2::dusoro
