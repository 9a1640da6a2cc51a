#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "companions/dusoro/sound/output_plan.h"
#include "companions/dusoro/sound/sound_error.h"
#include "companions/dusoro/sound/sound_reader.h"
#include "companions/dusoro/sound/sound_writer.h"
#include "platform/files.h"

// What the backends offer, each a part of it.
namespace mavrin2::dusoro {

struct ReadingHint {
    // What the data is, where it has no header.
    std::optional<OutputFormat> Headerless;
    // The name's extension in lower case; for the few kinds that their content does not identify.
    std::string Extension;
    // Whether to look for faults that take time to find.
    bool Check = false;
};

class Decoder {
public:
    virtual ~Decoder() = default;

    // The reader keeps `file`. FormatFile when this library does not know the content.
    virtual Outcome<std::unique_ptr<SoundReader>> Open(const std::shared_ptr<platform::File>& file,
                                                       const ReadingHint& hint) const = 0;
};

class Encoder {
public:
    virtual ~Encoder() = default;

    // `file` is empty and outlives the writer. What the library refuses becomes the nearest that it
    // takes. FormatNotSupported when there is no such thing, FileAccess when the beginning could
    // not be written.
    virtual Outcome<std::unique_ptr<SoundWriter>> Create(platform::File& file,
                                                         const OutputPlan& plan) const = 0;
    // Whether the library supports exactly this format.
    virtual bool Has(const OutputFormat&) const { return true; }
};

// Another rate for one sound, block by block.
class Resampler {
public:
    virtual ~Resampler() = default;

    struct Progress {
        std::size_t Consumed;   // frames of `in`
        std::size_t Delivered;  // frames of `out`
    };
    // Interleaved samples. The output is aligned in time with the input; the last
    // frames come from Flush.
    virtual Progress Process(std::span<const std::int16_t> in, std::span<std::int16_t> out) = 0;
    // After the last input: the frames delivered, 0 when there are no more.
    virtual std::size_t Flush(std::span<std::int16_t> out) = 0;
    // Samples that were limited to full scale so far.
    virtual std::int64_t LimitedSamples() const = 0;
};

class ResamplerMaker {
public:
    virtual ~ResamplerMaker() = default;

    // Null when the library refuses.
    virtual std::unique_ptr<Resampler> Make(std::int32_t from, std::int32_t to,
                                            std::int32_t channels) const = 0;
};

}  // namespace mavrin2::dusoro
