#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mavrin2::dusoro {

// The readable descriptions of formats: "PCM 44100 Hz; 16 bit; stereo".
std::string TextWithBits(std::string_view name, std::int32_t rate, std::int32_t bits,
                         std::int32_t channels);
// "MP3 44100 Hz; 128 kbit/s; stereo", without the middle when the bit rate (bit/s) is unknown: 0.
std::string TextWithBitRate(std::string_view name, std::int32_t rate, std::int64_t bitRate,
                            std::int32_t channels);

}  // namespace mavrin2::dusoro
