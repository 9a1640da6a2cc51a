#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "companions/dusoro/sound/output_format.h"
#include "companions/dusoro/sound/pcm_format.h"

namespace mavrin2::dusoro {

struct SourceDescription {
    std::int32_t SourceRate = 0;  // of the file itself, in hertz
    PcmFormat Delivered;          // of what Read gives
    std::int64_t Frames = 0;      // as delivered; an estimate where the file does not tell
    std::int32_t BitsPerSample = 16;
    bool PlainPcm = false;
    std::string Text;                 // readable, UTF-8
    std::int32_t SourceChannels = 0;  // of the file itself; more than two are mixed down
    std::int64_t StatedFrames = 0;    // the length that the file states; 0 where it does not
    // How such a file is written, where it can be.
    std::optional<OutputFormat> Format = {};
};

// What was found wrong with a file, as far as it has been read.
struct SourceFaults {
    std::int64_t DamagedBlocks = 0;   // parts that the decoder refused, or whose checksum is wrong
    std::int64_t LimitedSamples = 0;  // of what was delivered, beyond full scale in the file
    bool ChecksumDiffers = false;     // that of the whole sound; known at its end
    bool EndMissing = false;          // the file is cut; known at the end of what is there
};

// A sound that is being read from its beginning to its end.
class SoundReader {
public:
    virtual ~SoundReader() = default;

    virtual const SourceDescription& Description() const = 0;

    // Fills `samples` (interleaved, a whole number of frames) and returns the frames delivered:
    // fewer than asked for only at the end. What is damaged inside the file is left out.
    virtual std::size_t Read(std::span<std::int16_t> samples) = 0;

    // Of what was delivered, samples that a conversion of the rate has limited to full scale.
    virtual std::int64_t LimitedByConversion() const { return 0; }

    // Limited samples and checksums are known only of files that are opened to be checked.
    virtual SourceFaults Faults() const { return {}; }
};

}  // namespace mavrin2::dusoro
