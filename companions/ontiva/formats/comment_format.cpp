#include "companions/ontiva/formats/comment_format.h"

#include "companions/ontiva/chunks/chunk_file.h"
#include "companions/ontiva/chunks/text_chunks.h"
#include "companions/ontiva/files/numbers.h"
#include "companions/ontiva/markers/cue_chunks.h"
#include "companions/ontiva/markers/mark_chunk.h"
#include "companions/ontiva/markers/vorbis_chapters.h"

namespace mavrin2::ontiva {
namespace {

// Whether a FLAC file has blocks of other programs or a cue sheet. Reads the blocks' headers.
bool HasHiddenBlocks(const ByteSource& file, std::int64_t prefix) {
    constexpr std::int64_t kHeader = 4;
    constexpr int kApplication = 2;
    constexpr int kCueSheet = 5;
    constexpr int kMostBlocks = 1024;
    std::int64_t start = prefix + kHeader;
    for (int i = 0; i < kMostBlocks && start < file.Length(); ++i) {
        const auto head = GetNumber<std::uint32_t>(file.Bytes(start, kHeader), 0, std::endian::big);
        const auto type = static_cast<int>(head >> 24 & 0x7F);
        if (type == kApplication || type == kCueSheet) return true;
        if (head >> 31 != 0) return false;  // the last one
        start += kHeader + (head & 0xFFFFFF);
    }
    return false;
}

SoundInfo FromWaveChunks(const std::vector<std::string>& chunks) {
    SoundInfo info;
    std::string cue;
    std::string list;
    for (const std::string& chunk : chunks) {
        if (chunk.size() < Chunk::kHeader) continue;
        const std::string_view content = std::string_view(chunk).substr(Chunk::kHeader);
        if (chunk.starts_with("cue ")) cue = content;
        if (chunk.starts_with("LIST") && content.starts_with("adtl")) list = content;
        if (chunk.starts_with("LIST") && content.starts_with("INFO"))
            info.Texts = ReadInfoList(content, std::endian::little);
    }
    info.Markers = ReadCues(cue, list, std::endian::little);
    return info;
}

}  // namespace

SoundInfo CommentFormat::Original(const EditedFile& file) const {
    if (kind_.Kind != FileKind::Flac || !HasHiddenBlocks(file, kind_.Prefix)) return {};
    FlacLibrary::Blocks blocks = libraries_.Flac().Read(file, kind_.Prefix);
    SoundInfo info = FromWaveChunks(blocks.WaveChunks);
    for (const std::string& chunk : blocks.AiffChunks)
        if (chunk.starts_with("MARK"))
            info.Markers = ReadMarks(std::string_view(chunk).substr(Chunk::kHeader));
    if (info.Markers.empty()) info.Markers = std::move(blocks.Tracks);
    return info;
}

SoundInfo CommentFormat::Read(EditedFile& file) const {
    SoundInfo info;
    CommentContent content = libraries_.Tags().ReadComments(file, kind_);
    bool found = false;
    info.Markers = TakeVorbisChapters(content.Comments, kind_.Rate, found);
    info.Texts = std::move(content.Comments);
    info.Pictures = std::move(content.Pictures);
    AdoptUsualNames(info.Texts);
    // Programs for other kinds of files put their tag before this one as well.
    if (kind_.Prefix > 0 && info.Texts.Empty())
        info.Texts = libraries_.Tags().ReadId3(file.Bytes(0, kind_.Prefix), kind_.Rate).Info.Texts;
    SoundInfo original = Original(file);
    if (!found) info.Markers = std::move(original.Markers);
    for (const auto& [name, values] : original.Texts.Entries())
        if (info.Texts.All(name).empty()) info.Texts.SetAll(name, values);
    return info;
}

std::optional<TailEdit> CommentFormat::Write(EditedFile& file, const SoundInfo& info) const {
    const TagLibrary& tags = libraries_.Tags();
    CommentContent content = tags.ReadComments(file, kind_);
    bool found = false;
    TakeVorbisChapters(content.Comments, kind_.Rate, found);
    content.Comments = Merge(content.Comments, info.Texts);
    AddVorbisChapters(content.Comments, info.Markers, kind_.Rate, !Original(file).Markers.empty());
    if (!info.Pictures.empty()) content.Pictures = info.Pictures;
    tags.WriteComments(file, kind_, content);
    // FLAC has no room for more than 16 MB, and TagLib leaves out what is larger.
    CommentContent written = tags.ReadComments(file, kind_);
    if (TakeVorbisChapters(written.Comments, kind_.Rate, found) != info.Markers)
        throw NotWritable("the file has no room for so many comments");
    // Its texts are among the comments now, and would be wrong after the next change.
    file.Replace(0, kind_.Prefix, {});
    return std::nullopt;
}

}  // namespace mavrin2::ontiva
