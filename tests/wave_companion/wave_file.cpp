#include "tests/wave_companion/wave_file.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace mavrin2::tests {
namespace {

void Put(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i));
}

std::uint32_t Get(const std::string& bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<std::uint8_t>(bytes.at(at + static_cast<std::size_t>(i)));
    return value;
}

}  // namespace

std::optional<WaveSound> ReadWave(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    if (bytes.size() < 12 || bytes.compare(0, 4, "RIFF") != 0 || bytes.compare(8, 4, "WAVE") != 0)
        return std::nullopt;
    WaveSound sound;
    for (std::size_t at = 12; at + 8 <= bytes.size();) {
        const std::size_t start = at + 8;
        const std::size_t size = std::min<std::size_t>(Get(bytes, at + 4, 4), bytes.size() - start);
        if (bytes.compare(at, 4, "fmt ") == 0 && size >= 16) {
            if (Get(bytes, start, 2) != 1 || Get(bytes, start + 14, 2) != 16) return std::nullopt;
            sound.Channels = static_cast<std::int32_t>(Get(bytes, start + 2, 2));
            sound.Frequency = static_cast<std::int32_t>(Get(bytes, start + 4, 4));
        } else if (bytes.compare(at, 4, "data") == 0) {
            for (std::size_t i = 0; i + 2 <= size; i += 2)
                sound.Samples.push_back(static_cast<std::int16_t>(Get(bytes, start + i, 2)));
        }
        at = start + size + size % 2;
    }
    if (sound.Channels < 1 || sound.Channels > 2) return std::nullopt;
    return sound;
}

bool WriteWave(const std::filesystem::path& path, const WaveSound& sound) {
    const auto size = static_cast<std::uint32_t>(sound.Samples.size() * 2);
    const auto frame = static_cast<std::uint32_t>(sound.Channels) * 2;
    std::string bytes = "RIFF";
    Put(bytes, 36 + size, 4);
    bytes += "WAVEfmt ";
    Put(bytes, 16, 4);
    Put(bytes, 1, 2);
    Put(bytes, static_cast<std::uint32_t>(sound.Channels), 2);
    Put(bytes, static_cast<std::uint32_t>(sound.Frequency), 4);
    Put(bytes, static_cast<std::uint32_t>(sound.Frequency) * frame, 4);
    Put(bytes, frame, 2);
    Put(bytes, 16, 2);
    bytes += "data";
    Put(bytes, size, 4);
    for (const std::int16_t sample : sound.Samples)
        Put(bytes, static_cast<std::uint16_t>(sample), 2);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << bytes;
    return static_cast<bool>(file.flush());
}

}  // namespace mavrin2::tests
