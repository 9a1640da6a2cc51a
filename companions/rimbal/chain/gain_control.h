#pragma once

#include <cstdint>
#include <span>

#include "companions/rimbal/chain/recording_settings.h"

namespace mavrin2::rimbal {

// Automatic gain control: keeps the peaks of sound between two levels, with a gain of 10 … 1000 %.
// The sound is looked at in windows of 10 ms. A peak above the high level lowers the gain; the gain
// rises when peaks have stayed below the low level for about the attack time. In the attack time
// the gain gets within 5 % of what it should be. Near silence it stays.
class GainControl {
public:
    GainControl(std::int32_t rate, std::int32_t channels);

    void Configure(const GainSettings& settings) { settings_ = settings; }
    void Process(std::span<double> samples);
    // Back to 100 %.
    void Reset();
    std::int32_t Percent() const;

private:
    void EndWindow();

    const std::size_t channels_;
    const std::int32_t window_;  // frames
    GainSettings settings_;
    double gain_ = 1;
    double step_ = 0;      // for each frame of the present window
    std::int32_t at_ = 0;  // frames of it that are done
    double peak_ = 0;      // of it
    double level_ = 0;     // peaks of the last time, decaying
};

}  // namespace mavrin2::rimbal
