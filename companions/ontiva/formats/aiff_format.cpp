#include "companions/ontiva/formats/aiff_format.h"

#include <cmath>

#include "companions/ontiva/chunks/chunk_update.h"
#include "companions/ontiva/chunks/text_chunks.h"
#include "companions/ontiva/files/numbers.h"
#include "companions/ontiva/info/text_encoding.h"
#include "companions/ontiva/markers/mark_chunk.h"
#include "companions/ontiva/markers/public_marks.h"

namespace mavrin2::ontiva {
namespace {

constexpr auto kOrder = std::endian::big;

bool IsInfo(const Chunk& chunk) {
    return chunk.Id == "MARK" || chunk.Id == "ID3 " || IsAiffText(chunk);
}

std::string ContentOf(const ChunkFile& chunks, std::string_view id) {
    const Chunk* chunk = chunks.Find(id);
    return chunk ? chunks.Content(*chunk) : std::string();
}

// The sample rate is a number of 80 bits: exponent, and a mantissa of 64.
std::int32_t RateOf(const ChunkFile& chunks) {
    constexpr int kBias = 16383 + 63;
    const std::string common = ContentOf(chunks, "COMM");
    const int exponent = GetNumber<std::uint16_t>(common, 8, kOrder);
    const auto mantissa = static_cast<double>(GetNumber<std::uint64_t>(common, 10, kOrder));
    const double rate = std::ldexp(mantissa, exponent - kBias);
    return rate >= 1 && rate <= INT32_MAX ? static_cast<std::int32_t>(std::lround(rate)) : 0;
}

PublicMark MarkOf(const Marker& marker) {
    return {marker.Position, std::string(Cut(marker.Label, kLongestMarkLabel))};
}

// The chapters, unless another program has changed the marks since they were written together.
std::vector<Marker> MarkersOf(std::string_view marks, Id3Content tag) {
    std::vector<Marker>& chapters = tag.Info.Markers;
    if (marks.empty() || (!chapters.empty() && !tag.ChaptersUnchanged)) return std::move(chapters);
    std::vector<PublicMark> list;
    for (const Marker& marker : ReadMarks(marks))
        list.push_back({marker.Position, marker.Label});
    return Reconcile(
        list, std::move(chapters),
        {MarkOf, [](std::int64_t position) { return static_cast<std::int32_t>(position); },
         kMostMarks});
}

}  // namespace

SoundInfo AiffFormat::Read(EditedFile& file) const {
    const ChunkFile chunks(file);
    Id3Content tag;
    if (const std::string bytes = ContentOf(chunks, "ID3 "); !bytes.empty())
        tag = libraries_.Tags().ReadId3(bytes, RateOf(chunks));
    SoundInfo info = tag.Info;
    info.Markers = MarkersOf(ContentOf(chunks, "MARK"), std::move(tag));
    const Fields texts = ReadAiffTexts(chunks);
    for (const auto& [name, values] : texts.Entries())
        if (info.Texts.All(name).empty()) info.Texts.SetAll(name, values);
    return info;
}

std::optional<TailEdit> AiffFormat::Write(EditedFile& file, const SoundInfo& info) const {
    const ChunkFile chunks(file);
    const std::int32_t rate = RateOf(chunks);
    if (rate == 0 && !info.Markers.empty()) throw NotWritable("the file has no sample rate");
    std::string added;
    if (!info.Markers.empty()) added += RenderChunk("MARK", RenderMarks(info.Markers), kOrder);
    added += RenderAiffTexts(info.Texts);
    const std::string present = ContentOf(chunks, "ID3 ");
    if (!present.empty() || !info.Empty()) {
        const std::string tag = libraries_.Tags().RenderId3(present, info, rate);
        if (!tag.empty()) added += RenderChunk("ID3 ", tag, kOrder);
    }
    return ChunkUpdate(chunks, IsInfo).Apply(file, added);
}

}  // namespace mavrin2::ontiva
