#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace mavrin2::ontiva {

// Whole numbers in bytes. Bytes past the end count as zeros.
template <std::unsigned_integral Number>
Number GetNumber(std::string_view bytes, std::size_t offset, std::endian order) {
    Number value = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const std::size_t place = order == std::endian::big ? i : sizeof(Number) - 1 - i;
        const auto byte = offset + place < bytes.size()
                              ? static_cast<std::uint8_t>(bytes[offset + place])
                              : std::uint8_t{0};
        value = static_cast<Number>(value << 8 | byte);
    }
    return value;
}

template <std::unsigned_integral Number>
void AddNumber(std::string& bytes, Number value, std::endian order) {
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const std::size_t shift = order == std::endian::big ? sizeof(Number) - 1 - i : i;
        bytes.push_back(static_cast<char>(value >> (8 * shift)));
    }
}

// A number with 7 bits in each of its four bytes, as in ID3v2 tags.
constexpr std::uint32_t FromSevenBits(std::uint32_t number) {
    return (number & 0x7F) | (number & 0x7F00) >> 1 | (number & 0x7F0000) >> 2 |
           (number & 0x7F000000) >> 3;
}
constexpr std::uint32_t ToSevenBits(std::uint32_t number) {
    return (number & 0x7F) | (number & 0x3F80) << 1 | (number & 0x1FC000) << 2 |
           (number & 0xFE00000) << 3;
}

}  // namespace mavrin2::ontiva
