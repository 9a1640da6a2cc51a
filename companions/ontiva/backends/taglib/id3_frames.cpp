#include "companions/ontiva/backends/taglib/id3_frames.h"

#include <taglib/id3v2framefactory.h>
#include <taglib/id3v2synchdata.h>
#include <taglib/privateframe.h>

#include <memory>
#include <utility>

#include "companions/ontiva/backends/taglib/conversions.h"
#include "companions/ontiva/files/numbers.h"

namespace mavrin2::ontiva {
namespace {

namespace id3 = TagLib::ID3v2;

constexpr std::size_t kTagHeader = 10;
constexpr std::size_t kMostFrames = 200000;

std::uint32_t Number(std::string_view bytes, std::size_t offset) {
    return GetNumber<std::uint32_t>(bytes, offset, std::endian::big);
}

std::string Decoded(std::string_view bytes) {
    return ToBytes(id3::SynchData::decode(ToVector(bytes)));
}

struct RawFrame {
    std::string_view Id;
    std::uint8_t Flags = 0;  // the second byte of them
    std::string_view Content;
    std::size_t Size = 0;  // with the header
};

// The frames of one version, one after the other.
class FrameReader {
public:
    FrameReader(std::string_view bytes, int version) : bytes_(bytes), version_(version) {}

    // False at padding, damage or the end.
    bool Next(RawFrame& frame) {
        const std::size_t header = version_ == 2 ? 6 : 10;
        const std::size_t idSize = version_ == 2 ? 3 : 4;
        if (bytes_.size() <= header || !IsId(bytes_.substr(0, idSize))) return false;
        const std::size_t size = ContentSize();
        if (size == 0 || size > bytes_.size() - header) return false;
        frame = {bytes_.substr(0, idSize),
                 version_ == 2 ? std::uint8_t{0} : static_cast<std::uint8_t>(bytes_[9]),
                 bytes_.substr(header, size), header + size};
        bytes_.remove_prefix(frame.Size);
        return true;
    }

private:
    static bool IsId(std::string_view id) {
        return !id.empty() && std::all_of(id.begin(), id.end(), [](char c) {
            return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        });
    }

    std::size_t ContentSize() const {
        if (version_ == 2) return Number(bytes_, 2) & 0xFFFFFF;
        const std::uint32_t plain = Number(bytes_, 4);
        if (version_ == 3) return plain;
        // Some programs write sizes of version 2.4 as in 2.3: then the next frame shows it.
        const std::uint32_t sevenBits = FromSevenBits(plain);
        if ((plain & 0x80808080U) != 0) return plain;
        if (plain == sevenBits || IsFrameAfter(sevenBits) || !IsFrameAfter(plain)) return sevenBits;
        return plain;
    }
    bool IsFrameAfter(std::size_t size) const {
        return 10 + size + 4 <= bytes_.size() && IsId(bytes_.substr(10 + size, 4));
    }

    std::string_view bytes_;
    int version_;
};

// Makes TagLib's frames of raw ones.
class FrameMaker {
public:
    explicit FrameMaker(int version, bool unsynchronised)
        : version_(version), unsynchronised_(unsynchronised && version == 4) {
        header_.setMajorVersion(static_cast<unsigned int>(version));
    }

    // The content as it was before zeros were put in to hide what looks like the start of sound.
    std::string ContentOf(const RawFrame& raw) const {
        constexpr std::uint8_t kUnsynchronised = 0x02;
        const bool decode =
            version_ == 4 && (unsynchronised_ || (raw.Flags & kUnsynchronised) != 0);
        return decode ? Decoded(raw.Content) : std::string(raw.Content);
    }

    // Null for a frame that cannot be taken over.
    std::unique_ptr<id3::Frame> Make(const RawFrame& raw) {
        constexpr std::uint8_t kPacked[] = {0, 0, 0, 0x80, 0x08};
        constexpr std::size_t kMostPacked = 1 << 15;  // which can be a thousand times that
        const std::string content = ContentOf(raw);
        if (content.empty()) return nullptr;
        if ((raw.Flags & kPacked[version_]) != 0) {
            packed_ += content.size();
            if (packed_ > kMostPacked) return nullptr;
        }
        return std::unique_ptr<id3::Frame>(id3::FrameFactory::instance()->createFrame(
            ToVector(Whole(raw, content)), &std::as_const(header_)));
    }

private:
    std::string Whole(const RawFrame& raw, std::string_view content) const {
        std::string frame(raw.Id);
        const auto size = static_cast<std::uint32_t>(content.size());
        if (version_ == 2) {
            AddNumber(frame, size << 8, std::endian::big);
            frame.pop_back();
        } else {
            AddNumber(frame, version_ == 4 ? ToSevenBits(size) : size, std::endian::big);
            frame.push_back('\0');
            frame.push_back(static_cast<char>(version_ == 4 ? raw.Flags & 0xFD : raw.Flags));
        }
        return frame.append(content);
    }

    id3::Header header_;
    int version_;
    bool unsynchronised_;
    std::size_t packed_ = 0;
};

// The texts within a chapter; other frames there are not looked at.
void ReadPart(const RawFrame& raw, FrameMaker& maker, Id3Frames::FoundChapter& chapter) {
    if (raw.Id != "TIT2" && raw.Id != "TIT3" && raw.Id != "PRIV") return;
    const auto frame = maker.Make(raw);
    if (!frame) return;
    if (raw.Id == "TIT2") chapter.Times.Label = ToUtf8(frame->toString());
    if (raw.Id == "TIT3") chapter.Note = ToUtf8(frame->toString());
    const auto* secret = dynamic_cast<const id3::PrivateFrame*>(frame.get());
    if (secret && secret->owner() == kExactOwner)
        chapter.Exact = ParseExact(ToBytes(secret->data()));
}

std::optional<Id3Frames::FoundChapter> ReadChapter(std::string_view content, int version,
                                                   FrameMaker& maker) {
    constexpr std::size_t kTimes = 16;
    const std::size_t end = content.find('\0');
    if (end == std::string_view::npos || content.size() - end - 1 < kTimes) return std::nullopt;
    content.remove_prefix(end + 1);
    Id3Frames::FoundChapter chapter;
    chapter.Times.Start = Number(content, 0);
    const std::uint32_t stop = Number(content, 4);
    chapter.Times.End = stop == UINT32_MAX ? 0 : stop;
    FrameReader parts(content.substr(kTimes), version);
    for (RawFrame raw; parts.Next(raw);)
        ReadPart(raw, maker, chapter);
    return chapter;
}

}  // namespace

Id3Frames::Id3Frames(std::string_view bytes) {
    constexpr std::uint8_t kUnsynchronised = 0x80;
    constexpr std::uint8_t kExtended = 0x40;
    if (bytes.size() < kTagHeader || !bytes.starts_with("ID3")) return;
    Version = static_cast<std::uint8_t>(bytes[3]);
    const auto flags = static_cast<std::uint8_t>(bytes[5]);
    if (Version < 2 || Version > 4) {
        Complete = false;
        return;
    }
    std::string_view rest = bytes.substr(kTagHeader, FromSevenBits(Number(bytes, 6)));
    const std::string decoded =
        (flags & kUnsynchronised) != 0 && Version < 4 ? Decoded(rest) : std::string();
    if (!decoded.empty()) rest = decoded;
    if ((flags & kExtended) != 0 && Version > 2) {
        // Its size includes itself in version 2.4 only.
        const std::size_t size =
            Version == 4 ? FromSevenBits(Number(rest, 0)) : std::size_t{Number(rest, 0)} + 4;
        rest.remove_prefix(std::min(size, rest.size()));
    }

    FrameMaker maker(Version, (flags & kUnsynchronised) != 0);
    FrameReader reader(rest, Version);
    std::size_t count = 0;
    for (RawFrame raw; reader.Next(raw);) {
        if (++count > kMostFrames) {
            Complete = false;
            break;
        }
        if (raw.Id == "CTOC") continue;  // made anew from the chapters
        if (raw.Id == "CHAP") {
            auto chapter = ReadChapter(maker.ContentOf(raw), Version, maker);
            if (chapter) Chapters.push_back(std::move(*chapter));
            continue;
        }
        auto frame = maker.Make(raw);
        Complete = Complete && frame;
        if (frame) Tag.addFrame(frame.release());
    }
    // Day and month are separate frames in older versions.
    Tag.header()->setMajorVersion(static_cast<unsigned int>(Version));
    id3::FrameFactory::instance()->rebuildAggregateFrames(&Tag);
    for (const char* part : {"TDAT", "TIME"})
        Tag.removeFrames(part);
}

}  // namespace mavrin2::ontiva
