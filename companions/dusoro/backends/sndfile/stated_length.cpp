#include "companions/dusoro/backends/sndfile/stated_length.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace mavrin2::dusoro {
namespace {

enum class Order : std::uint8_t { Little, Big };

// Where the sound is and how long it is said to be, in bytes; 0 where that is not known.
struct SoundChunk {
    std::int64_t Start = 0;
    std::int64_t Stated = 0;
};

class Header {
public:
    explicit Header(platform::File& file) : file_(file) {}

    bool Has(std::int64_t at, std::string_view text) const {
        std::array<char, 4> bytes{};
        return file_.Read(at, std::as_writable_bytes(std::span(bytes))) == bytes.size() &&
               text == std::string_view(bytes.data(), bytes.size());
    }

    // An unsigned number of up to 8 bytes; -1 where it is not there or larger than an offset.
    std::int64_t Number(std::int64_t at, std::size_t size, Order order) const {
        std::array<std::byte, 8> bytes{};
        const std::span used = std::span(bytes).first(size);
        if (file_.Read(at, used) != size) return -1;
        if (order == Order::Little) std::ranges::reverse(used);
        std::uint64_t value = 0;
        for (const std::byte byte : used)
            value = value << 8 | std::to_integer<std::uint64_t>(byte);
        return value > std::numeric_limits<std::int64_t>::max() ? -1
                                                                : static_cast<std::int64_t>(value);
    }

private:
    platform::File& file_;
};

// How a kind of file is made of chunks: a name, a size of so many bytes, a content.
struct Chunks {
    std::int64_t First;      // offset
    std::string_view Sound;  // the name of the sound's chunk begins so
    std::int64_t Before;     // bytes of that chunk before the sound
    std::size_t NameBytes;
    std::size_t SizeBytes;
    Order SizeOrder;
    bool SizeCountsAll;     // name and size included
    std::int64_t Multiple;  // chunks begin at multiples of this
};

SoundChunk FindSound(const Header& header, const Chunks& chunks) {
    constexpr int kMostChunks = 10000;
    const auto head = static_cast<std::int64_t>(chunks.NameBytes + chunks.SizeBytes);
    std::int64_t at = chunks.First;
    for (int i = 0; i < kMostChunks; ++i) {
        std::int64_t size = header.Number(at + static_cast<std::int64_t>(chunks.NameBytes),
                                          chunks.SizeBytes, chunks.SizeOrder);
        if (chunks.SizeCountsAll) size -= head;
        if (size < 0 || size > std::numeric_limits<std::int64_t>::max() / 4) return {};
        if (header.Has(at, chunks.Sound)) return {at + head + chunks.Before, size - chunks.Before};
        at += head + (size + chunks.Multiple - 1) / chunks.Multiple * chunks.Multiple;
    }
    return {};
}

SoundChunk FindSound(const Header& header) {
    // A program that could not go back to its header leaves one of these there.
    constexpr std::int64_t kUnknown = 0x7FFFF000;
    constexpr Chunks kRiff{12, "data", 0, 4, 4, Order::Little, false, 2};
    constexpr Chunks kForm{12, "SSND", 8, 4, 4, Order::Big, false, 2};
    constexpr Chunks kCaf{8, "data", 4, 4, 8, Order::Big, false, 1};
    constexpr Chunks kWave64{40, "data", 0, 16, 8, Order::Little, true, 8};
    SoundChunk sound;
    if (header.Has(0, "RIFF") || header.Has(0, "FORM")) {
        sound = FindSound(header, header.Has(0, "RIFF") ? kRiff : kForm);
        if (sound.Stated >= kUnknown) return {};
    } else if (header.Has(0, "RF64") && header.Has(12, "ds64")) {
        sound = {FindSound(header, kRiff).Start, header.Number(28, 8, Order::Little)};
    } else if (header.Has(0, "caff")) {
        sound = FindSound(header, kCaf);
    } else if (header.Has(0, "riff")) {
        sound = FindSound(header, kWave64);
    } else if (header.Has(0, ".snd")) {
        sound = {header.Number(4, 4, Order::Big), header.Number(8, 4, Order::Big)};
        if (sound.Stated >= kUnknown) return {};
    }
    return sound;
}

}  // namespace

std::int64_t StatedFrames(platform::File& file, std::int64_t present, std::int64_t frameBytes) {
    const SoundChunk sound = FindSound(Header(file));
    const std::int64_t there = file.Length().value_or(0) - sound.Start;
    if (sound.Start <= 0 || there <= 0 || sound.Stated <= there) return present;
    if (frameBytes > 0) return std::max(present, sound.Stated / frameBytes);
    // At least one more.
    return static_cast<std::int64_t>(static_cast<double>(present) *
                                     static_cast<double>(sound.Stated) /
                                     static_cast<double>(there)) +
           1;
}

}  // namespace mavrin2::dusoro
