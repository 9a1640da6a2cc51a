#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace mavrin2::formats {

// What the four bytes at the beginning of a frame of MPEG audio say.
struct MpegHeader {
    std::uint32_t Kind;      // the bits that all frames of one stream have in common
    std::int32_t Size;       // bytes, with the header
    std::int32_t Frames;     // sample frames
    std::int32_t Rate;       // hertz
    std::int32_t TagOffset;  // offset in the first frame of a tag in place of sound

    static std::optional<MpegHeader> Parse(const std::uint8_t* bytes);
};

inline std::optional<MpegHeader> MpegHeader::Parse(const std::uint8_t* bytes) {
    constexpr std::array<std::array<std::int16_t, 15>, 5> kKilobits = {{
        {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},  // 1, layer I
        {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},     // 1, layer II
        {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},      // 1, layer III
        {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},     // 2, layer I
        {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},          // 2, others
    }};
    constexpr std::array<std::int32_t, 3> kRates = {44100, 48000, 32000};

    if (bytes[0] != 0xFF || (bytes[1] & 0xE0) != 0xE0) return std::nullopt;
    const int version = (bytes[1] >> 3) & 3;  // 3: MPEG 1, 2: MPEG 2, 0: MPEG 2.5
    const int layer = 4 - ((bytes[1] >> 1) & 3);
    const int bitRate = bytes[2] >> 4;
    const int rate = (bytes[2] >> 2) & 3;
    // Bit rate 0 is the free format, whose frames do not tell their size.
    if (version == 1 || layer == 4 || bitRate == 0 || bitRate == 15 || rate == 3)
        return std::nullopt;

    const bool first = version == 3;
    const int table = first ? layer - 1 : layer == 1 ? 3 : 4;
    const std::int32_t bits =
        kKilobits[static_cast<std::size_t>(table)][static_cast<std::size_t>(bitRate)] * 1000;
    const std::int32_t hertz = kRates[static_cast<std::size_t>(rate)] / (first          ? 1
                                                                         : version == 2 ? 2
                                                                                        : 4);
    const std::int32_t padding = (bytes[2] >> 1) & 1;
    const bool mono = (bytes[3] >> 6) == 3;

    MpegHeader header{};
    header.Kind = static_cast<std::uint32_t>(bytes[1] & 0xFE) << 8 | (bytes[2] & 0x0C);
    header.Rate = hertz;
    header.Frames = layer == 1 ? 384 : layer == 3 && !first ? 576 : 1152;
    header.Size =
        layer == 1 ? (12 * bits / hertz + padding) * 4 : header.Frames / 8 * bits / hertz + padding;
    header.TagOffset = 4 + (first ? (mono ? 17 : 32) : (mono ? 9 : 17));
    return header;
}

}  // namespace mavrin2::formats
