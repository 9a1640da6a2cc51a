#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "companions/dusoro/sound/pcm_format.h"

namespace mavrin2::dusoro {

struct OutputDescription {
    PcmFormat Carried;  // rate and channels of the file, which Write expects
    std::int32_t BitsPerSample = 16;
    bool PlainPcm = false;
    std::string Text;  // readable, UTF-8
};

// A sound file that is being written.
class SoundWriter {
public:
    virtual ~SoundWriter() = default;

    virtual const OutputDescription& Description() const = 0;

    // Appends interleaved samples, a whole number of frames. False when they did not all reach the
    // file or its format takes no more; the file cannot be completed then.
    virtual bool Write(std::span<const std::int16_t> samples) = 0;

    // Of what was written, samples that a conversion of the rate has limited to full scale.
    virtual std::int64_t LimitedByConversion() const { return 0; }

    // Completes the file. False when that failed, now or in an earlier Write. Called once.
    virtual bool Finish() = 0;
};

}  // namespace mavrin2::dusoro
