#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace mavrin2::tests {

// Makes the checksums of Ogg pages right again, while the pages follow each other: readers drop
// a page with a wrong one, and no damage inside would ever reach them.
inline void SealOggPages(std::string& bytes) {
    constexpr std::size_t kHeader = 27;
    constexpr std::size_t kChecksum = 22;
    std::size_t page = 0;
    while (page + kHeader <= bytes.size() && bytes.compare(page, 4, "OggS") == 0) {
        const std::size_t segments = static_cast<std::uint8_t>(bytes[page + 26]);
        std::size_t size = kHeader + segments;
        for (std::size_t i = 0; i < segments && page + kHeader + i < bytes.size(); ++i)
            size += static_cast<std::uint8_t>(bytes[page + kHeader + i]);
        if (page + size > bytes.size()) return;
        bytes.replace(page + kChecksum, 4, 4, '\0');
        std::uint32_t sum = 0;
        for (std::size_t i = page; i < page + size; ++i) {
            sum ^= static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes[i])) << 24;
            for (int bit = 0; bit < 8; ++bit)
                sum = sum << 1 ^ (sum >> 31 != 0 ? 0x04C11DB7U : 0U);
        }
        for (int i = 0; i < 4; ++i)
            bytes[page + kChecksum + static_cast<std::size_t>(i)] =
                static_cast<char>(sum >> (8 * i));
        page += size;
    }
}

// Damaged variants of a file, the same ones for the same seed: bits that flipped, ends that are
// missing, pieces in the wrong place, numbers at their limits. Headers are hit more often than what
// follows them.
class DamagedFiles {
public:
    // `seal`, if any, repairs checksums after the damage in half of the variants.
    DamagedFiles(std::string whole, std::uint32_t seed, void (*seal)(std::string&) = nullptr)
        : whole_(std::move(whole)), random_(seed), seal_(seal) {}

    std::string Next() {
        std::string bytes = whole_;
        const std::size_t faults = 1 + Below(3);
        for (std::size_t i = 0; i < faults && !bytes.empty(); ++i)
            Damage(bytes);
        if (seal_ && Below(2) == 0) seal_(bytes);
        return bytes;
    }

private:
    void Damage(std::string& bytes) {
        switch (Below(7)) {
            case 0:
                for (std::size_t i = 0, count = 1 + Below(8); i < count; ++i) {
                    const std::size_t bit = std::size_t{1} << Below(8);
                    char& byte = bytes[Place(bytes)];
                    byte = static_cast<char>(static_cast<std::uint8_t>(byte) ^ bit);
                }
                break;
            case 1:
                bytes.resize(Place(bytes));
                break;
            case 2: {  // a piece of the file over another place in it
                const auto [from, count] = Piece(bytes);
                const std::string piece = bytes.substr(from, count);
                bytes.replace(Place(bytes), count, piece);
                break;
            }
            case 3: {
                const auto [from, count] = Piece(bytes);
                bytes.erase(from, count);
                break;
            }
            case 4: {
                const auto [from, count] = Piece(bytes);
                for (std::size_t i = from; i < from + count; ++i)
                    bytes[i] = static_cast<char>(random_());
                break;
            }
            case 5: {
                const auto [from, count] = Piece(bytes);
                bytes.insert(from, bytes.substr(from, count));
                break;
            }
            default:
                PutLimit(bytes);
        }
    }

    // A size or a count in the file takes a value at the edge of its type.
    void PutLimit(std::string& bytes) {
        constexpr std::uint64_t kLimits[] = {0,
                                             1,
                                             0x7F,
                                             0x80,
                                             0xFF,
                                             0x7FFF,
                                             0x8000,
                                             0xFFFF,
                                             0x7FFFFFFF,
                                             0x80000000,
                                             0xFFFFFFFE,
                                             0xFFFFFFFF,
                                             0x7FFFFFFFFFFFFFFF,
                                             0xFFFFFFFFFFFFFFFF};
        const std::uint64_t value = kLimits[Below(std::size(kLimits))];
        const std::size_t width = std::size_t{1} << Below(4);
        const bool bigEndian = Below(2) == 0;
        const std::size_t at = Place(bytes);
        for (std::size_t i = 0; i < width && at + i < bytes.size(); ++i)
            bytes[at + i] = static_cast<char>(value >> (8 * (bigEndian ? width - 1 - i : i)));
    }

    std::size_t Below(std::size_t limit) { return random_() % limit; }

    // A place in the file, half of the time in its first 200 bytes.
    std::size_t Place(const std::string& bytes) {
        const std::size_t all = bytes.size();
        return Below(Below(2) == 0 ? std::min<std::size_t>(all, 200) : all);
    }

    std::pair<std::size_t, std::size_t> Piece(const std::string& bytes) {
        const std::size_t from = Place(bytes);
        return {from, std::min(bytes.size() - from, 1 + Below(300))};
    }

    std::string whole_;
    std::mt19937 random_;
    void (*seal_)(std::string&);
};

}  // namespace mavrin2::tests
