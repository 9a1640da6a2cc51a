#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace mavrin2::tests {

// A sound of 16-bit PCM, interleaved, whole in memory.
struct WaveSound {
    std::int32_t Frequency = 0;
    std::int32_t Channels = 0;
    std::vector<std::int16_t> Samples;
};

// Nothing when the file is no WAVE file of 16-bit PCM.
std::optional<WaveSound> ReadWave(const std::filesystem::path& path);
bool WriteWave(const std::filesystem::path& path, const WaveSound& sound);

}  // namespace mavrin2::tests
