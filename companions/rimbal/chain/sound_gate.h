#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "companions/rimbal/chain/recording_settings.h"

namespace mavrin2::rimbal {

// Recording by sound. The level is the peak of a window of 10 ms, so the gate opens and closes at
// such windows. It opens when the level has been above the attack level for the attack time, and
// what it has held back of that time passes too; it closes when the level has been below the
// release level for the release time.
class SoundGate {
public:
    SoundGate(std::int32_t rate, std::int32_t channels);

    void Configure(const GateSettings& settings) { settings_ = settings; }
    // Appends to `passed` what passes of whole interleaved frames. All passes while it is disabled.
    void Pass(std::span<const std::int16_t> samples, std::vector<std::int16_t>& passed);

private:
    void EndWindow(std::vector<std::int16_t>& passed);

    const std::size_t window_;  // samples
    GateSettings settings_;
    bool open_ = false;
    std::size_t at_ = 0;        // in the present window
    std::int32_t peak_ = 0;     // of it
    std::int64_t windows_ = 0;  // loud ones while closed, quiet ones while open, in succession
    std::vector<std::int16_t> held_;  // while closed
};

}  // namespace mavrin2::rimbal
