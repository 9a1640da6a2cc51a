#pragma once

#include <cstdint>
#include <optional>

#include "companions/dusoro/backends/ffmpeg/file_window.h"
#include "companions/formats/mpeg_header.h"

namespace mavrin2::dusoro {

// Where the frames of MPEG audio (layers I to III without a container) are in a file. Offsets are
// bytes from the start of the file.

// The end of the ID3 tags that a file begins with.
std::int64_t EndOfId3(FileWindow& window);

// Nothing where four bytes are no header of a frame.
std::optional<formats::MpegHeader> MpegHeaderAt(FileWindow& window, std::int64_t offset);

// The next place from `offset` on where a frame follows a frame of the same kind; -1 for none
// before `limit`.
std::int64_t FindMpegFrame(FileWindow& window, std::int64_t offset, std::int64_t limit);

// The first of all frames, near the beginning of the file; -1 for none.
std::int64_t FirstMpegFrame(FileWindow& window);

// The tag that encoders put into the first frame.
struct MpegTag {
    std::int64_t MpegFrames = 0;  // 0: unknown
    std::int64_t Bytes = 0;       // 0: unknown
    std::int64_t Delay = -1;      // of the encoder; -1: unknown
    std::int64_t Padding = 0;
    std::int64_t ChecksumAt = 0;  // offset of the sound's length and checksum; 0 without them

    // Whether it can be that of a file with so many bytes from the first frame on. Files that were
    // joined begin with the tag of the first, and a damaged tag may state any number.
    bool Fits(std::int64_t bytes) const;
};
std::optional<MpegTag> MpegTagAt(FileWindow& window, std::int64_t offset,
                                 const formats::MpegHeader& header);

std::uint32_t BigEndian(const std::uint8_t* bytes, int count);

}  // namespace mavrin2::dusoro
