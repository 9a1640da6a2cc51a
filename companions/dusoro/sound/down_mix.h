#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace mavrin2::dusoro {

// Where a channel of a sound with more than two of them is heard.
enum class Speaker : std::uint8_t {
    FrontLeft,
    FrontRight,
    FrontCentre,
    LowFrequency,
    SurroundLeft,   // side or back
    SurroundRight,  // side or back
    SurroundCentre,
    Unknown,
};

// The usual order of that many channels, for files that do not tell.
std::vector<Speaker> UsualSpeakers(std::size_t channels);

// Several channels as two. Front left and right enter as they are, the centre and the surrounds
// with 0.7071, the low-frequency channel not at all. All of that is then scaled down so far that
// channels at full scale cannot go beyond it together.
class DownMix {
public:
    explicit DownMix(std::span<const Speaker> speakers);

    std::size_t Channels() const { return gains_.size(); }

    // `in`: interleaved, full scale 1, Channels() for each frame; `out`: two for each frame.
    // Returns how many samples were beyond full scale and are limited.
    std::size_t Apply(std::span<const float> in, std::int16_t* out) const;

private:
    struct Gains {
        float Left, Right;
    };
    void ScaleDown();

    std::vector<Gains> gains_;  // in steps of a 16-bit sample
};

}  // namespace mavrin2::dusoro
