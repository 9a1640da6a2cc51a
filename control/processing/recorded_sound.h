#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "control/signal/quantity.h"
#include "platform/files.h"

namespace mavrin2::processing {

// Where in a work file a recording writes, block by block. After each block the file is complete,
// as if the recording had ended there.
class RecordedSound {
public:
    explicit RecordedSound(platform::FileSystem& files) : files_(files) {}

    // `mix` adds the blocks to the sound that is there; otherwise they replace it.
    void Begin(const std::filesystem::path& workFile, signal::Bytes position, bool mix);
    // Writes a block, which may change it, at the end of the one before. `total` is the length of
    // the document and grows with it. False when it cannot be written, or not all of it; the
    // document is then no longer than before, and no further block is written.
    bool Store(std::span<std::int16_t> block, signal::Bytes& total);

private:
    bool Write(std::span<std::int16_t> block, signal::Bytes& total);

    platform::FileSystem& files_;
    std::filesystem::path workFile_;
    signal::Bytes position_;
    bool mix_ = false;
    bool failed_ = false;
    std::vector<std::int16_t> existing_;
};

}  // namespace mavrin2::processing
