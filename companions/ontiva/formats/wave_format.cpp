#include "companions/ontiva/formats/wave_format.h"

#include "companions/ontiva/chunks/chunk_update.h"
#include "companions/ontiva/chunks/text_chunks.h"
#include "companions/ontiva/files/numbers.h"
#include "companions/ontiva/markers/cue_chunks.h"

namespace mavrin2::ontiva {
namespace {

bool IsId3(const Chunk& chunk) {
    return chunk.Id == "id3 " || chunk.Id == "ID3 ";
}

bool IsInfo(const Chunk& chunk) {
    return chunk.Id == "cue " || chunk.Form == "adtl" || chunk.Form == "INFO" || IsId3(chunk);
}

std::string ContentOf(const ChunkFile& chunks, std::string_view id, std::string_view form = {}) {
    const Chunk* chunk = chunks.Find(id, form);
    return chunk ? chunks.Content(*chunk) : std::string();
}

std::string Id3Of(const ChunkFile& chunks) {
    const std::string tag = ContentOf(chunks, "id3 ");
    return tag.empty() ? ContentOf(chunks, "ID3 ") : tag;
}

std::int32_t RateOf(const ChunkFile& chunks) {
    const std::string format = ContentOf(chunks, "fmt ");
    return static_cast<std::int32_t>(GetNumber<std::uint32_t>(format, 4, chunks.Order()) &
                                     INT32_MAX);
}

void AddChunk(std::string& chunks, std::string_view id, std::string_view content,
              std::endian order) {
    if (!content.empty()) chunks += RenderChunk(id, content, order);
}

}  // namespace

SoundInfo WaveFormat::Read(EditedFile& file) const {
    const ChunkFile chunks(file);
    SoundInfo info;
    if (const std::string tag = Id3Of(chunks); !tag.empty())
        info = libraries_.Tags().ReadId3(tag, RateOf(chunks)).Info;
    const Fields list = ReadInfoList(ContentOf(chunks, "LIST", "INFO"), chunks.Order());
    for (const auto& [name, values] : list.Entries())
        if (info.Texts.All(name).empty()) info.Texts.SetAll(name, values);
    const std::string cue = ContentOf(chunks, "cue ");
    if (!cue.empty())
        info.Markers = ReadCues(cue, ContentOf(chunks, "LIST", "adtl"), chunks.Order());
    return info;
}

std::optional<TailEdit> WaveFormat::Write(EditedFile& file, const SoundInfo& info) const {
    const ChunkFile chunks(file);
    const std::endian order = chunks.Order();
    std::string added;
    if (!info.Markers.empty()) {
        AddChunk(added, "cue ", RenderCues(info.Markers, order), order);
        AddChunk(added, "LIST", RenderCueTexts(info.Markers, order), order);
    }
    AddChunk(added, "LIST", RenderInfoList(info.Texts, ContentOf(chunks, "LIST", "INFO"), order),
             order);
    const std::string present = Id3Of(chunks);
    if (!present.empty() || !info.Texts.Empty() || !info.Pictures.empty() || !info.Frames.empty())
        AddChunk(added, "id3 ", libraries_.Tags().RenderId3(present, info, 0), order);
    return ChunkUpdate(chunks, IsInfo).Apply(file, added);
}

}  // namespace mavrin2::ontiva
