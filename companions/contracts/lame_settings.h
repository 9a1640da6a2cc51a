#pragma once

#include <cstdint>
#include <string_view>

namespace mavrin2::contracts {

// How MP3 is encoded. Fields keep what a host has written; the encoder takes the nearest that it
// has. Bit rates in kbit/s, frequencies in hertz. Booleans are 0 or not.
struct LameSettings {
    std::int16_t Bitrate =
        128;  // constant, or the smallest of a variable rate; 0: encoder's choice
    std::int16_t VbrBitrate = 192;  // the largest of a variable rate; 0: encoder's choice
    std::int16_t Channels = 2;
    std::int16_t EncoderQuality = 5;  // 0 best and slowest … 9
    std::int16_t VbrQuality = 7;      // 0 best … 9
    std::int32_t Frequency = 44100;
    // −1 constant bit rate, 0 the encoder's default of variable rates, 1 its old method, 2 and 3
    // its new one, 4 average bit rate.
    std::int16_t VbrCodingMethod = -1;
    std::int16_t AbrBitrate = 128;
    std::int16_t ErrorProtection = 0;   // a checksum in each frame
    std::int16_t WritingVbrHeader = 1;  // a first frame that states the length
    std::int16_t NoBitReservoir = 0;
    std::int16_t BlockTypeControl = 0;  // blocks of different types in the channels
    std::int16_t NoShortBlocks = 0;
    std::int16_t StrictIsoCompliance = 0;
    std::int16_t StrictMinBitrate = 0;   // for silence too
    std::int32_t LowPassFrequency = -1;  // −1: encoder's choice, 0: off
    std::int32_t HighPassFrequency = -1;
    std::int32_t LowPassWidth = 0;
    std::int32_t HighPassWidth = 0;
    // Threshold of hearing: 1 nothing else decides, 2 not used, 3 as 1 in short blocks.
    std::int16_t AthControlMode = 0;
    std::int16_t Emphasis = 0;    // 0 none, 1 50/15 µs, 3 CCITT; stated, not applied
    std::int16_t PresetKind = 0;  // LAME's own preset: 1 r3mix, 2 standard, 3 extreme, 4 insane
    std::int16_t TypeStereo = 1;  // 1 simple, 2 joint, 3 forced joint stereo, 4 two channels

    bool operator==(const LameSettings&) const = default;
};

// Number of an alternative preset: this and the number that hosts give.
inline constexpr std::int32_t kAltPresets = 100;

// 1 … 11 and 101 … 105 are presets, which change some fields; all others are the default, which
// sets every field.
void ApplyLamePreset(LameSettings& settings, std::int32_t preset);

// Options of LAME's own program, separated by single spaces, after the default. At most 127 tokens
// are read; those that are unknown or lack a value are ignored. Nothing changes for an empty line.
void ApplyLameCommandLine(LameSettings& settings, std::string_view line);

}  // namespace mavrin2::contracts
