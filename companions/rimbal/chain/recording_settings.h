#pragma once

#include <cstdint>
#include <mutex>

namespace mavrin2::rimbal {

struct FilterSettings {
    bool Enabled = false;
    float Frequency = 0;  // Hz
};

// Levels are peaks, 0 … 32767; times milliseconds.
struct GainSettings {
    bool Enabled = false;
    std::int32_t LowLevel = 8000;
    std::int32_t HighLevel = 24000;
    std::int32_t AttackTime = 500;
};

struct GateSettings {
    bool Enabled = false;
    std::int32_t AttackTime = 20;
    std::int32_t AttackLevel = 1000;
    std::int32_t ReleaseTime = 1000;
    std::int32_t ReleaseLevel = 500;
};

struct RecordingSettings {
    FilterSettings Notch{false, 50};
    FilterSettings HighPass{false, 80};
    FilterSettings LowPass{false, 15000};
    GainSettings Gain;
    GateSettings Gate;
};

// The settings as a host changes them while another thread records. Any thread.
class SharedSettings {
public:
    RecordingSettings Get() const {
        const std::lock_guard lock(mutex_);
        return settings_;
    }
    template <class Update>
    void Change(Update update) {
        const std::lock_guard lock(mutex_);
        update(settings_);
    }

private:
    mutable std::mutex mutex_;
    RecordingSettings settings_;
};

}  // namespace mavrin2::rimbal
