#include "companions/ontiva/chunks/text_chunks.h"

#include <algorithm>
#include <iterator>

#include "companions/ontiva/files/numbers.h"
#include "companions/ontiva/info/text_encoding.h"

namespace mavrin2::ontiva {
namespace {

struct Named {
    std::string_view Id;
    std::string_view Name;
};

// Of two identifiers for one name the first is written, both are read.
constexpr Named kInfoNames[] = {
    {"INAM", "TITLE"},     {"IART", "ARTIST"},    {"IPRD", "ALBUM"},       {"ICRD", "DATE"},
    {"ICMT", "COMMENT"},   {"IMUS", "COMPOSER"},  {"ITRK", "TRACKNUMBER"}, {"IPRT", "TRACKNUMBER"},
    {"ITCH", "ENCODEDBY"}, {"ICOP", "COPYRIGHT"}, {"IGNR", "GENRE"},       {"IENG", "ENGINEER"},
    {"IKEY", "KEYWORDS"},  {"ISBJ", "SUBJECT"},   {"ILNG", "LANGUAGE"},    {"IMED", "SOURCEMEDIA"}};

constexpr Named kAiffNames[] = {
    {"NAME", "TITLE"}, {"AUTH", "ARTIST"}, {"(c) ", "COPYRIGHT"}, {"ANNO", "COMMENT"}};

constexpr std::size_t kFormSize = 4;

template <std::size_t Count>
std::string_view NameOf(const Named (&table)[Count], std::string_view id) {
    const auto* found = std::find_if(std::begin(table), std::end(table),
                                     [id](const Named& entry) { return entry.Id == id; });
    return found == std::end(table) ? std::string_view() : found->Name;
}

// Calls `use(id, content)` for each entry while the lengths make sense.
template <class Use>
void ForEachEntry(std::string_view list, std::endian order, Use use) {
    for (std::size_t start = kFormSize; start + Chunk::kHeader <= list.size();) {
        const std::size_t length = std::min<std::size_t>(
            GetNumber<std::uint32_t>(list, start + 4, order), list.size() - start - Chunk::kHeader);
        use(list.substr(start, 4), list.substr(start + Chunk::kHeader, length));
        start += Chunk::kHeader + length + (length & 1);
    }
}

}  // namespace

Fields ReadInfoList(std::string_view list, std::endian order) {
    Fields fields;
    ForEachEntry(list, order, [&](std::string_view id, std::string_view content) {
        const std::string_view name = NameOf(kInfoNames, id);
        if (!name.empty() && fields.All(name).empty()) fields.Set(name, TextOf(content));
    });
    return fields;
}

std::string RenderInfoList(const Fields& fields, std::string_view present, std::endian order) {
    std::string list = "INFO";
    std::string_view last;
    for (const auto& [id, name] : kInfoNames) {
        const std::string text = fields.Joined(name);
        // The zero belongs to the content.
        if (!text.empty() && name != last) list += RenderChunk(id, text + '\0', order);
        last = name;
    }
    ForEachEntry(present, order, [&](std::string_view id, std::string_view content) {
        if (NameOf(kInfoNames, id).empty()) list += RenderChunk(id, content, order);
    });
    return list.size() > kFormSize ? list : std::string();
}

bool IsAiffText(const Chunk& chunk) {
    return !NameOf(kAiffNames, chunk.Id).empty();
}

Fields ReadAiffTexts(const ChunkFile& chunks) {
    constexpr std::int64_t kLongest = 1 << 20;
    Fields fields;
    for (const Chunk& chunk : chunks.Chunks()) {
        const std::string_view name = NameOf(kAiffNames, chunk.Id);
        std::string text = name.empty() ? std::string() : TextOf(chunks.Content(chunk, kLongest));
        if (!text.empty()) fields.Add(name, std::move(text));
    }
    return fields;
}

std::string RenderAiffTexts(const Fields& fields) {
    std::string all;
    for (const auto& [id, name] : kAiffNames)
        for (const std::string& value : fields.All(name))
            all += RenderChunk(id, value, std::endian::big);
    return all;
}

}  // namespace mavrin2::ontiva
