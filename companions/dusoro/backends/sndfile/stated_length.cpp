#include "companions/dusoro/backends/sndfile/stated_length.h"

#include <array>
#include <string_view>

namespace mavrin2::dusoro {
namespace {

using Word = std::array<std::byte, 4>;

std::uint32_t NumberOf(const Word& word, bool bigEndian) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < word.size(); ++i)
        value = value << 8 | std::to_integer<std::uint32_t>(word.at(bigEndian ? i : 3 - i));
    return value;
}

bool Is(const Word& word, std::string_view text) {
    return std::string_view(reinterpret_cast<const char*>(word.data()), word.size()) == text;
}

// Where the sound is and how long it is said to be, in bytes.
struct SoundChunk {
    std::int64_t Start = 0;
    std::int64_t Stated = 0;
};

SoundChunk FindSoundChunk(platform::File& file, bool aiff) {
    constexpr std::int64_t kFirst = 12;
    // A program that could not go back to its header leaves one of these there.
    constexpr std::uint32_t kUnknown = 0x7FFFF000;
    std::int64_t at = kFirst;
    std::array<Word, 2> header{};
    while (file.Read(at, std::as_writable_bytes(std::span(header))) == sizeof header) {
        const std::uint32_t size = NumberOf(header[1], aiff);
        at += sizeof header;
        if (Is(header[0], aiff ? "SSND" : "data"))
            return size == 0 || size >= kUnknown ? SoundChunk() : SoundChunk{at, size};
        at += std::int64_t{size} + (size & 1);
    }
    return {};
}

}  // namespace

std::int64_t StatedFrames(platform::File& file, std::int64_t present) {
    Word kind{};
    if (file.Read(0, kind) != kind.size()) return present;
    const bool aiff = Is(kind, "FORM");
    if (!aiff && !Is(kind, "RIFF")) return present;
    const SoundChunk chunk = FindSoundChunk(file, aiff);
    const std::int64_t there = file.Length().value_or(0) - chunk.Start;
    if (chunk.Start == 0 || there <= 0 || chunk.Stated <= there) return present;
    return static_cast<std::int64_t>(static_cast<double>(present) *
                                     static_cast<double>(chunk.Stated) /
                                     static_cast<double>(there));
}

}  // namespace mavrin2::dusoro
