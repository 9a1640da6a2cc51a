#include "companions/ontiva/backends/taglib/trailing_tags.h"

#include <taglib/apefooter.h>
#include <taglib/apetag.h>
#include <taglib/id3v1genres.h>
#include <taglib/id3v1tag.h>

#include <optional>

#include "companions/ontiva/backends/taglib/conversions.h"
#include "companions/ontiva/backends/taglib/edited_stream.h"

namespace mavrin2::ontiva {
namespace {

constexpr std::int64_t kId3v1Size = 128;
constexpr std::int64_t kApeFooterSize = 32;

std::optional<std::int64_t> FindId3v1(const ByteSource& file) {
    const std::int64_t start = file.Length() - kId3v1Size;
    if (start < 0 || file.Bytes(start, 3) != "TAG") return std::nullopt;
    return start;
}

// An APE tag that ends where ID3v1 begins.
struct ApeTag {
    static std::optional<ApeTag> Find(const EditedFile& file, StreamFile& stream) {
        const std::int64_t end = FindId3v1(file).value_or(file.Length());
        const std::int64_t footer = end - kApeFooterSize;
        if (footer < 0 || file.Bytes(footer, 8) != "APETAGEX") return std::nullopt;
        auto tag = std::make_unique<TagLib::APE::Tag>(&stream, static_cast<long>(footer));
        const std::int64_t size = tag->footer()->completeTagSize();
        if (size < kApeFooterSize || size > end) return std::nullopt;
        return ApeTag{std::move(tag), end - size, size};
    }

    std::unique_ptr<TagLib::APE::Tag> Tag;
    std::int64_t Start;
    std::int64_t Size;
};

Fields ReadId3v1(StreamFile& stream, std::int64_t start) {
    const TagLib::ID3v1::Tag tag(&stream, static_cast<long>(start));
    Fields fields = ToFields(tag.properties());
    AdoptUsualNames(fields);
    return fields;
}

std::string RenderId3v1(const Fields& texts) {
    TagLib::ID3v1::Tag tag;
    tag.setTitle(ToText(texts.First("TITLE")));
    tag.setArtist(ToText(texts.First("ARTIST")));
    tag.setAlbum(ToText(texts.First("ALBUM")));
    tag.setComment(ToText(texts.First("COMMENT")));
    tag.setGenre(ToText(texts.First("GENRE")));
    tag.setYear(static_cast<unsigned int>(std::max(0, ToText(texts.First("DATE")).toInt())));
    tag.setTrack(
        static_cast<unsigned int>(std::max(0, ToText(texts.First("TRACKNUMBER")).toInt())));
    return tag.isEmpty() ? std::string() : ToBytes(tag.render());
}

}  // namespace

TrailerContent ReadTrailingTags(EditedFile& file) {
    EditedStream stream(file);
    StreamFile tags(stream);
    TrailerContent content;
    const auto id3v1 = FindId3v1(file);
    content.HasId3v1 = id3v1.has_value();
    if (const auto ape = ApeTag::Find(file, tags)) content.Texts = ToFields(ape->Tag->properties());
    AdoptUsualNames(content.Texts);
    if (content.Texts.Empty() && id3v1) content.Texts = ReadId3v1(tags, *id3v1);
    stream.Check();
    return content;
}

void WriteTrailingTags(EditedFile& file, const Fields& texts) {
    EditedStream stream(file);
    StreamFile tags(stream);
    const auto ape = ApeTag::Find(file, tags);
    if (const auto id3v1 = FindId3v1(file)) file.Replace(*id3v1, kId3v1Size, {});
    if (ape) {
        ape->Tag->setProperties(ToProperties(Merge(ToFields(ape->Tag->properties()), texts)));
        file.Replace(ape->Start, ape->Size,
                     ape->Tag->isEmpty() ? std::string() : ToBytes(ape->Tag->render()));
    }
    stream.Check();
    file.Replace(file.Length(), 0, RenderId3v1(texts));
}

}  // namespace mavrin2::ontiva
