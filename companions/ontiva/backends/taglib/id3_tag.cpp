#include "companions/ontiva/backends/taglib/id3_tag.h"

#include <taglib/attachedpictureframe.h>
#include <taglib/id3v2framefactory.h>

#include <algorithm>
#include <iterator>
#include <memory>

#include "companions/ontiva/backends/taglib/conversions.h"
#include "companions/ontiva/backends/taglib/frame_access.h"
#include "companions/ontiva/backends/taglib/id3_chapters.h"
#include "companions/ontiva/backends/taglib/id3_frames.h"
#include "companions/ontiva/files/numbers.h"

namespace mavrin2::ontiva {
namespace {

namespace id3 = TagLib::ID3v2;

// Frames about one file: loudness, length and places in it, encoder, encryption and signatures.
constexpr std::string_view kOfOneFile[] = {"RVA2", "RVAD", "RGAD", "EQU2", "EQUA", "TLEN", "TSIZ",
                                           "MLLT", "ASPI", "SEEK", "POSS", "RBUF", "TDLY", "TSSE",
                                           "AENC", "ENCR", "GRID", "SIGN", "LINK", "CRM "};

// Frames that version 2.3 does not define, but programs use there. TagLib leaves them out.
constexpr std::string_view kKeptInOlderTags[] = {"TMOO", "TPRO", "TDRL", "TDTG"};

template <std::size_t Count>
bool Contains(const std::string_view (&list)[Count], std::string_view id) {
    return std::find(std::begin(list), std::end(list), id) != std::end(list);
}

std::string IdOf(const id3::Frame& frame) {
    return ToBytes(frame.frameID());
}

bool IsPicture(const id3::Frame& frame) {
    return frame.frameID() == "APIC" || frame.frameID() == "PIC";
}

// A frame that is neither a text nor a picture and goes with the music.
bool TravelsWhole(const id3::Frame& frame) {
    const std::string id = IdOf(frame);
    return id.size() == 4 && !IsPicture(frame) && !Contains(kOfOneFile, id) &&
           !FrameAccess::HasTexts(frame);
}

void SetPictures(id3::Tag& tag, const std::vector<Picture>& pictures) {
    tag.removeFrames("APIC");
    for (const Picture& picture : pictures) {
        auto frame = std::make_unique<id3::AttachedPictureFrame>();
        frame->setType(static_cast<id3::AttachedPictureFrame::Type>(picture.Type));
        frame->setMimeType(ToText(picture.Mime));
        const TagLib::String description = ToText(picture.Description);
        if (!description.isLatin1()) frame->setTextEncoding(TagLib::String::UTF16);
        frame->setDescription(description);
        frame->setPicture(ToVector(picture.Data));
        tag.addFrame(frame.release());
    }
}

void SetFrames(id3::Tag& tag, const std::vector<std::string>& frames) {
    for (const std::string& bytes : frames)
        tag.removeFrames(ToVector(std::string_view(bytes).substr(0, 4)));
    const id3::Header header(ToVector(std::string("ID3\x04\0\0\0\0\0\0", 10)));
    for (const std::string& bytes : frames)
        if (id3::Frame* frame =
                id3::FrameFactory::instance()->createFrame(ToVector(bytes), &header))
            tag.addFrame(frame);
}

// What TagLib's rendering of version 2.3 leaves out.
TagLib::ByteVector FramesLeftOut(const id3::Tag& tag) {
    TagLib::ByteVector bytes;
    for (id3::Frame* frame : tag.frameList()) {
        if (!Contains(kKeptInOlderTags, IdOf(*frame))) continue;
        FrameAccess::SetVersion(*frame, 3);
        bytes.append(frame->render());
    }
    return bytes;
}

std::string WithSize(std::string tag) {
    const auto size = static_cast<std::uint32_t>(tag.size() - 10);
    if (size >> 28 != 0) throw NotWritable("an ID3v2 tag cannot be that long");
    std::string field;
    AddNumber(field, ToSevenBits(size), std::endian::big);
    tag.replace(6, field.size(), field);
    return tag;
}

std::string Rendered(id3::Tag& tag, int version) {
    if (tag.isEmpty()) return {};
    std::string bytes = ToBytes(tag.render(version == 4 ? id3::v4 : id3::v3));
    if (version != 4) bytes.insert(10, ToBytes(FramesLeftOut(tag)));
    return WithSize(std::move(bytes));
}

}  // namespace

Id3Content ReadId3Tag(std::string_view bytes, std::int32_t rate) {
    const Id3Frames frames(bytes);
    Id3Content content;
    content.Info.TagVersion = static_cast<std::int16_t>(frames.Version);
    content.Info.Texts = ToFields(frames.Tag.properties());
    AdoptUsualNames(content.Info.Texts);
    for (id3::Frame* frame : frames.Tag.frameList()) {
        if (!TravelsWhole(*frame)) continue;
        FrameAccess::SetVersion(*frame, 4);
        content.Info.Frames.push_back(ToBytes(frame->render()));
    }
    for (const id3::Frame* frame : frames.Tag.frameList("APIC"))
        if (const auto* picture = dynamic_cast<const id3::AttachedPictureFrame*>(frame))
            content.Info.Pictures.push_back(
                {static_cast<std::int32_t>(picture->type()), ToUtf8(picture->mimeType()),
                 ToUtf8(picture->description()), ToBytes(picture->picture())});
    if (rate > 0) ReadChapters(frames, rate, content);
    return content;
}

std::string RenderId3Tag(std::string_view present, const SoundInfo& info, std::int32_t rate) {
    Id3Frames frames(present);
    if (!frames.Complete) throw NotWritable("the ID3v2 tag has parts that would be lost");
    const int version = info.WantedVersion;
    id3::Tag& tag = frames.Tag;
    tag.setProperties(ToProperties(Merge(ToFields(tag.properties()), info.Texts)));
    if (!info.Pictures.empty()) SetPictures(tag, info.Pictures);
    SetFrames(tag, info.Frames);
    if (rate > 0) AddChapters(tag, info.Markers, rate, version);
    return Rendered(tag, version);
}

}  // namespace mavrin2::ontiva
