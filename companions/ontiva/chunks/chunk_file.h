#pragma once

#include <bit>
#include <optional>
#include <vector>

#include "companions/ontiva/files/byte_source.h"

namespace mavrin2::ontiva {

struct Chunk {
    std::string Id;       // four characters
    std::string Form;     // of a LIST chunk: its kind
    std::int64_t Start;   // of the chunk's header, in the file
    std::int64_t Length;  // bytes of the content that the file has

    std::int64_t Content() const { return Start + kHeader; }
    // The start of the next chunk: contents are padded to an even length.
    std::int64_t End() const { return Content() + Length + (Length & 1); }

    static constexpr std::int64_t kHeader = 8;
};

// The chunks of a WAV (RIFF, RIFX, RF64) or AIFF file, in the order of the file.
class ChunkFile {
public:
    // `file` is one of these kinds and must outlive this object. Looks at headers only.
    explicit ChunkFile(const ByteSource& file);

    const std::vector<Chunk>& Chunks() const { return chunks_; }
    // The first with this identifier (and kind, for a LIST).
    const Chunk* Find(std::string_view id, std::string_view form = {}) const;
    // The content, not more than `most` bytes of it. Throws FileFault.
    std::string Content(const Chunk& chunk, std::int64_t most = kMostContent) const;

    std::endian Order() const { return order_; }
    bool IsAiff() const { return aiff_; }
    bool Is64Bit() const { return wide_; }
    // The chunk with the samples; null if the file has none.
    const Chunk* Sound() const { return Find(aiff_ ? "SSND" : "data"); }
    // An unused stretch, which readers skip.
    std::string_view Filler() const { return aiff_ ? "FLLR" : "JUNK"; }
    bool IsFiller(const Chunk& chunk) const;

    // Whether every length fits, so that chunks can be added after the last one.
    bool IsIntact() const { return intact_; }
    // The end of the last chunk.
    std::int64_t End() const;

    static constexpr std::int64_t kFirstChunk = 12;  // where the first one begins
    static constexpr std::int64_t kMostContent = std::int64_t{1} << 28;

private:
    bool AddChunk(std::int64_t start, std::int64_t end);

    const ByteSource& file_;
    std::vector<Chunk> chunks_;
    std::endian order_ = std::endian::little;
    bool aiff_ = false;
    bool wide_ = false;
    bool intact_ = true;
    std::int64_t wideSoundLength_ = -1;  // RF64 says it in a separate chunk
};

// A chunk of these bytes, padded.
std::string RenderChunk(std::string_view id, std::string_view content, std::endian order);

}  // namespace mavrin2::ontiva
