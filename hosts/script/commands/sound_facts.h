#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "hosts/binding/late_binding.h"

namespace mavrin2::script {

// A document's sound: 2 GiB less one byte, of 16-bit samples.
inline constexpr std::int64_t kMostDocumentBytes = 0x7FFFFFFF;

// What is known of a sound file beside its sound.
struct SoundFacts {
    std::string Format;
    std::int32_t Rate = 0;      // hertz
    std::int32_t Channels = 0;  // of the file
    std::int32_t Bits = 0;      // of a sample in the file; 16 in lossy formats
    double Frames = 0;          // perhaps an estimate
    double StatedFrames = 0;    // 0 where the file does not state its length
    bool Decoded = false;       // whether the following is known
    double DecodedFrames = 0;
    double LimitedSamples = 0;
    std::int32_t DamagedBlocks = 0;
    bool ChecksumDiffers = false;
    bool EndMissing = false;

    std::int32_t DocumentChannels() const { return Channels > 2 ? 2 : Channels; }
    // The most frames of it that a document holds.
    std::int64_t DocumentFrames() const;
};

// What a document made of such a file lacks, a line each.
std::vector<std::string> LossesOf(const SoundFacts& facts);

// A sound file, asked by way of the file companion's inspector. Used on one thread. Everything
// throws CallError, the constructor also where the companion has no inspector.
class SoundInspection {
public:
    explicit SoundInspection(const std::string& file);

    // Decodes what is needed to find all faults, or until `cancelled` says so.
    void Decode(const std::function<bool()>& cancelled);
    SoundFacts Facts() const;

private:
    binding::LateBound inspector_;
    bool decoded_ = false;
    double frames_ = 0;
};

}  // namespace mavrin2::script
