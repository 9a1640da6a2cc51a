#include "companions/ontiva/backends/taglib/id3_chapters.h"

#include <taglib/chapterframe.h>
#include <taglib/privateframe.h>
#include <taglib/tableofcontentsframe.h>
#include <taglib/textidentificationframe.h>

#include <algorithm>
#include <memory>

#include "companions/ontiva/backends/taglib/conversions.h"

namespace mavrin2::ontiva {
namespace {

namespace id3 = TagLib::ID3v2;

TagLib::ByteVector ElementName(const char* kind, std::size_t index) {
    return ToVector(kind + std::to_string(index));
}

unsigned int Time(std::int64_t milliseconds) {
    constexpr std::int64_t kMost = 0xFFFFFFFE;  // one more means that there is no time
    return static_cast<unsigned int>(std::min(milliseconds, kMost));
}

std::unique_ptr<id3::Frame> TitleFrame(const std::string& label) {
    const TagLib::String text = ToText(label);
    auto title = std::make_unique<id3::TextIdentificationFrame>(
        "TIT2", text.isLatin1() ? TagLib::String::Latin1 : TagLib::String::UTF16);
    title->setText(text);
    return title;
}

std::unique_ptr<id3::Frame> ChapterFrame(const Marker& marker, std::size_t index,
                                         std::int32_t rate) {
    constexpr unsigned int kNoOffset = 0xFFFFFFFF;
    const Chapter chapter = ChapterOf(marker, rate);
    auto frame = std::make_unique<id3::ChapterFrame>(ElementName("chp", index), Time(chapter.Start),
                                                     Time(chapter.End), kNoOffset, kNoOffset);
    if (!marker.Label.empty()) frame->addEmbeddedFrame(TitleFrame(marker.Label).release());
    auto exact = std::make_unique<id3::PrivateFrame>();
    exact->setOwner(kExactOwner);
    exact->setData(ToVector(RenderExact(marker)));
    frame->addEmbeddedFrame(exact.release());
    return frame;
}

std::unique_ptr<id3::Frame> Contents(const TagLib::ByteVector& name,
                                     const TagLib::ByteVectorList& parts, bool top) {
    auto frame = std::make_unique<id3::TableOfContentsFrame>(name, parts);
    frame->setIsOrdered(true);
    frame->setIsTopLevel(top);
    return frame;
}

// A table has room for 255 entries; further ones go into tables within it.
void AddContents(id3::Tag& tag, std::size_t count) {
    constexpr std::size_t kMost = 255;
    TagLib::ByteVectorList tables;
    TagLib::ByteVectorList entries;
    for (std::size_t i = 0; i < count; ++i) {
        entries.append(ElementName("chp", i));
        const bool full = entries.size() == kMost || i + 1 == count;
        if (!full || count <= kMost) continue;
        const auto name = ElementName("toc", tables.size() + 1);
        tag.addFrame(Contents(name, entries, false).release());
        tables.append(name);
        entries.clear();
    }
    const TagLib::ByteVectorList& top = count <= kMost ? entries : tables;
    if (!top.isEmpty() && top.size() <= kMost)
        tag.addFrame(Contents(ElementName("toc", 0), top, true).release());
}

}  // namespace

void ReadChapters(const Id3Frames& frames, std::int32_t rate, Id3Content& content) {
    content.ChaptersUnchanged = true;
    for (const auto& [times, exact, note] : frames.Chapters) {
        Marker marker = MarkerOf(times, exact, rate);
        if (!exact) marker.Note = note;
        content.ChaptersUnchanged = content.ChaptersUnchanged && exact == marker;
        content.Info.Markers.push_back(std::move(marker));
    }
}

void AddChapters(id3::Tag& tag, const std::vector<Marker>& markers, std::int32_t rate, int) {
    AddContents(tag, markers.size());
    for (std::size_t i = 0; i < markers.size(); ++i)
        tag.addFrame(ChapterFrame(markers[i], i, rate).release());
}

}  // namespace mavrin2::ontiva
