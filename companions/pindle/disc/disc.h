#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

// A disc, and what the backend around the CD library offers.
namespace mavrin2::pindle {

// 16-bit values of a sector, left and right together.
inline constexpr std::int32_t kSectorValues = 1176;

struct Track {
    std::int32_t Number = 0;   // as printed on the disc's cover
    std::int32_t First = 0;    // sector on the disc
    std::int32_t Sectors = 0;  // not below 0
    bool Sound = false;
};

// The disc in a drive, or an image of one. Used on one thread.
class Disc {
public:
    virtual ~Disc() = default;

    virtual const std::vector<Track>& Tracks() const = 0;
    // Fills `samples`, which are whole sectors, from the sector `first` on: interleaved stereo.
    // `verify` reads until what is read agrees. False if a sector cannot be read.
    virtual bool Read(std::int32_t first, std::span<std::int16_t> samples, bool verify) = 0;
};

class DiscLibrary {
public:
    virtual ~DiscLibrary() = default;

    // The system's names of its CD drives.
    virtual std::vector<std::string> Devices() const = 0;
    // Null without a readable disc. `path` is a drive's name or the path of an image.
    virtual std::unique_ptr<Disc> Open(const std::string& path) const = 0;
};

}  // namespace mavrin2::pindle
