#include "companions/ontiva/chunks/chunk_update.h"

#include <algorithm>

#include "companions/ontiva/files/numbers.h"

namespace mavrin2::ontiva {
namespace {

constexpr std::int64_t kSizeField = 4;

// One write must not be made in two parts.
bool CrossesPage(std::int64_t offset) {
    constexpr std::int64_t kPage = 4096;
    return offset / kPage != (offset + Chunk::kHeader - 1) / kPage;
}

}  // namespace

ChunkUpdate::ChunkUpdate(const ChunkFile& chunks, const std::function<bool(const Chunk&)>& isOld)
    : chunks_(chunks), end_(chunks.End()) {
    const Chunk* sound = chunks.Sound();
    for (const Chunk& chunk : chunks.Chunks()) {
        const bool filler = chunks.IsFiller(chunk) && sound && chunk.Start > sound->Start;
        if (filler || isOld(chunk)) {
            old_.push_back(&chunk);
        } else {
            atEnd_ = atEnd_ && old_.empty();
            keptEnd_ = chunk.End();
        }
    }
}

std::optional<TailEdit> ChunkUpdate::Apply(EditedFile& file, std::string_view added) const {
    if (old_.empty() && added.empty()) return std::nullopt;
    if (atEnd_ && end_ - keptEnd_ == static_cast<std::int64_t>(added.size()) &&
        file.Bytes(keptEnd_, end_ - keptEnd_) == added)
        return std::nullopt;
    if (IsInPlace(file, added)) return InPlace(file, added);
    Rewrite(file, added);
    return std::nullopt;
}

bool ChunkUpdate::IsInPlace(const EditedFile& file, std::string_view added) const {
    // Stretches that no longer count may not become much of the file.
    constexpr std::int64_t kAlwaysFree = 1 << 16;
    const std::int64_t unused = end_ - keptEnd_;
    const bool hasOld = unused > 0;
    const std::int64_t newEnd = end_ + Chunk::kHeader + static_cast<std::int64_t>(added.size());
    return chunks_.IsIntact() && atEnd_ && (file.Length() == end_ || file.Length() == end_ - 1) &&
           !(hasOld && CrossesPage(keptEnd_)) && unused <= std::max(kAlwaysFree, end_ / 4) &&
           (chunks_.Is64Bit() || newEnd - Chunk::kHeader <= UINT32_MAX);
}

std::string ChunkUpdate::FillerHeader(std::int64_t length) const {
    std::string header(chunks_.Filler());
    AddNumber(header, static_cast<std::uint32_t>(length), chunks_.Order());
    return header;
}

TailEdit ChunkUpdate::InPlace(const EditedFile& file, std::string_view added) const {
    TailEdit edit;
    edit.Tail.assign(static_cast<std::size_t>(end_ - file.Length()), '\0');  // a missing padding
    const auto size = static_cast<std::int64_t>(added.size());
    std::int64_t start = end_;
    TailEdit::Switch last;
    if (keptEnd_ < end_) {
        // A filler hides the new chunks, until one around the old chunks hides that header.
        if (size > 0) {
            edit.Tail.append(FillerHeader(size)).append(added);
            start += Chunk::kHeader;
        }
        last = {keptEnd_, FillerHeader(start - keptEnd_ - Chunk::kHeader)};
    } else {
        if (CrossesPage(start)) {
            edit.Tail.append(FillerHeader(0));
            start += Chunk::kHeader;
        }
        edit.Tail.append(FillerHeader(size - Chunk::kHeader)).append(added.substr(Chunk::kHeader));
        last = {start, std::string(added.substr(0, Chunk::kHeader))};
    }
    edit.Switches = {SizeSwitch(start + size), std::move(last)};
    return edit;
}

TailEdit::Switch ChunkUpdate::SizeSwitch(std::int64_t end) const {
    TailEdit::Switch size{kSizeField, {}};
    const std::int64_t length = end - Chunk::kHeader;
    if (const Chunk* sizes = chunks_.Find("ds64"); chunks_.Is64Bit() && sizes) {
        size.Offset = sizes->Content();
        AddNumber(size.Bytes, static_cast<std::uint64_t>(length), chunks_.Order());
    } else {
        AddNumber(size.Bytes, static_cast<std::uint32_t>(length), chunks_.Order());
    }
    return size;
}

// A sound whose length says nothing ends with the file, and gets what has to follow it.
void ChunkUpdate::EndSound(EditedFile& file) const {
    const Chunk* sound = chunks_.Sound();
    if (chunks_.IsIntact()) return;
    if (!sound || sound != &chunks_.Chunks().back() || chunks_.Is64Bit() ||
        sound->Length > UINT32_MAX)
        throw NotWritable("the chunks of the file are damaged");
    std::string length;
    AddNumber(length, static_cast<std::uint32_t>(sound->Length), chunks_.Order());
    file.Replace(sound->Start + 4, 4, length);
}

void ChunkUpdate::Rewrite(EditedFile& file, std::string_view added) const {
    EndSound(file);
    if (file.Length() < end_) file.Replace(file.Length(), 0, std::string_view("\0", 1));
    file.Replace(end_, 0, added);
    std::int64_t end = end_ + static_cast<std::int64_t>(added.size());
    std::for_each(old_.rbegin(), old_.rend(), [&](const Chunk* chunk) {
        file.Replace(chunk->Start, chunk->End() - chunk->Start, {});
        end -= chunk->End() - chunk->Start;
    });
    if (!chunks_.Is64Bit() && end - Chunk::kHeader > UINT32_MAX)
        throw NotWritable("the file would get too long");
    TailEdit::Switch size = SizeSwitch(end);
    // Its place moves only if something before it goes, and nothing is.
    file.Replace(size.Offset, static_cast<std::int64_t>(size.Bytes.size()), size.Bytes);
}

}  // namespace mavrin2::ontiva
