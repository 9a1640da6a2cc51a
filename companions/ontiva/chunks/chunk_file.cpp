#include "companions/ontiva/chunks/chunk_file.h"

#include <algorithm>

#include "companions/ontiva/files/numbers.h"

namespace mavrin2::ontiva {
namespace {

// More than any program writes; a file of nothing but chunk headers must not take long.
constexpr std::size_t kMostChunks = 4096;

bool IsId(std::string_view id) {
    return id.size() == 4 &&
           std::all_of(id.begin(), id.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

}  // namespace

ChunkFile::ChunkFile(const ByteSource& file) : file_(file) {
    const std::string head = file.Bytes(0, kFirstChunk);
    aiff_ = head.starts_with("FORM");
    wide_ = head.starts_with("RF64");
    order_ = aiff_ || head.starts_with("RIFX") ? std::endian::big : std::endian::little;

    // A length that was never put in, or one beyond the file, says nothing.
    const std::int64_t length = file.Length();
    const std::int64_t stated = GetNumber<std::uint32_t>(head, 4, order_) + Chunk::kHeader;
    std::int64_t end = stated > kFirstChunk && stated <= length && !wide_ ? stated : length;
    std::int64_t start = kFirstChunk;
    while (start + Chunk::kHeader <= end) {
        if (chunks_.size() == kMostChunks || !AddChunk(start, length)) {
            intact_ = false;
            break;
        }
        start = chunks_.back().End();
        if (start > end) end = length;
    }
    intact_ = intact_ && start >= end;
}

bool ChunkFile::AddChunk(std::int64_t start, std::int64_t end) {
    const std::string head = file_.Bytes(start, Chunk::kHeader + 4);
    if (!IsId(std::string_view(head).substr(0, 4))) return false;
    Chunk chunk{head.substr(0, 4), {}, start, GetNumber<std::uint32_t>(head, 4, order_)};
    const std::int64_t room = end - chunk.Content();
    const bool isSound = chunk.Id == (aiff_ ? "SSND" : "data");
    if (chunk.Id == "ds64") {
        const std::string sizes = file_.Bytes(chunk.Content() + 8, 8);
        wideSoundLength_ =
            static_cast<std::int64_t>(GetNumber<std::uint64_t>(sizes, 0, order_) & INT64_MAX);
    }
    if (isSound && wide_ && chunk.Length == UINT32_MAX && wideSoundLength_ >= 0)
        chunk.Length = wideSoundLength_;
    // Programs that write to a pipe leave 0 or all ones there: the sound extends to the end.
    const bool unstated =
        isSound && chunk.Length == 0 && room > 0 && !IsId(file_.Bytes(chunk.Content(), 4));
    if (unstated || chunk.Length > room) {
        chunk.Length = room;
        intact_ = false;
    }
    if (chunk.Id == "LIST" && head.size() == Chunk::kHeader + 4) chunk.Form = head.substr(8);
    chunks_.push_back(std::move(chunk));
    return true;
}

const Chunk* ChunkFile::Find(std::string_view id, std::string_view form) const {
    const auto found = std::find_if(chunks_.begin(), chunks_.end(), [&](const Chunk& chunk) {
        return chunk.Id == id && (form.empty() || chunk.Form == form);
    });
    return found == chunks_.end() ? nullptr : &*found;
}

std::string ChunkFile::Content(const Chunk& chunk, std::int64_t most) const {
    return file_.Bytes(chunk.Content(), std::min(chunk.Length, most));
}

bool ChunkFile::IsFiller(const Chunk& chunk) const {
    return chunk.Id == Filler() || (!aiff_ && chunk.Id == "junk");
}

std::int64_t ChunkFile::End() const {
    return chunks_.empty() ? kFirstChunk : chunks_.back().End();
}

std::string RenderChunk(std::string_view id, std::string_view content, std::endian order) {
    std::string chunk(id);
    if (content.size() > UINT32_MAX) throw NotWritable("a chunk is too long");
    AddNumber(chunk, static_cast<std::uint32_t>(content.size()), order);
    chunk.append(content);
    if (content.size() % 2 != 0) chunk.push_back('\0');
    return chunk;
}

}  // namespace mavrin2::ontiva
