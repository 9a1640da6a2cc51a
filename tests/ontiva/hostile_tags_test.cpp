#include <zlib.h>

#include "companions/ontiva/files/numbers.h"
#include "tests/ontiva/sound_files.h"
#include "tests/support/peak_memory.h"

namespace mavrin2::ontiva {
namespace {

std::string Frame(const std::string& id, const std::string& content, std::uint16_t flags = 0) {
    std::string frame = id;
    AddNumber(frame, static_cast<std::uint32_t>(content.size()), std::endian::big);
    AddNumber(frame, flags, std::endian::big);
    return frame + content;
}

// An MPEG file with this ID3v2.3 tag.
std::string WithTag(const std::string& frames) {
    std::string tag("ID3\3\0\0", 6);
    for (int shift = 21; shift >= 0; shift -= 7)
        tag.push_back(static_cast<char>(frames.size() >> shift & 0x7F));
    return tag + frames + MakeSound(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 3000);
}

std::string Chapter(const std::string& name, const std::string& parts) {
    std::string content = name + '\0';
    for (const std::uint32_t number : {1000U, 2000U, 0xFFFFFFFFU, 0xFFFFFFFFU})
        AddNumber(content, number, std::endian::big);
    return Frame("CHAP", content + parts);
}

std::string Latin(const std::string& text) {
    return '\0' + text;
}

TEST(HostileTags, WithChaptersInChaptersAreReadFlat) {
    std::string nested;
    for (int i = 0; i < 3000; ++i)
        nested = Chapter("c", nested);
    const std::string loop =
        Frame("CTOC", std::string("toc\0\3\1toc\0", 10)) + Chapter("c", Frame("TIT2", Latin("t")));
    EXPECT_EQ(ReadInfo(WithTag(nested)).Markers.size(), 1U);
    EXPECT_EQ(ReadInfo(WithTag(loop)).Markers,
              (std::vector<Marker>{{44100, 44100, "t", "", "", {}}}));
}

TEST(HostileTags, ThatUnpackToAThousandTimesTheirSizeAreNotUnpacked) {
    const std::string zeros(std::size_t{64} << 20, '\0');
    std::string packed(compressBound(zeros.size()), '\0');
    uLongf size = packed.size();
    compress(reinterpret_cast<Bytef*>(packed.data()), &size,
             reinterpret_cast<const Bytef*>(zeros.data()), zeros.size());
    packed.resize(size);
    std::string length;
    AddNumber(length, static_cast<std::uint32_t>(zeros.size()), std::endian::big);
    std::string frames = Frame("TIT2", Latin("title"));
    for (int i = 0; i < 20; ++i)
        frames += Frame("COMM", length + packed, 0x80);
    const std::string file = WithTag(frames);

    const std::int64_t before = tests::PeakMemory();
    const SoundInfo info = ReadInfo(file);
    EXPECT_EQ(info.Texts.First("TITLE"), "title");
    EXPECT_LT(tests::PeakMemory() - before, std::int64_t{64} << 20);
    // What cannot be read would be lost.
    EXPECT_THROW(WithInfo(file, info), NotWritable);
}

TEST(HeaderlessSounds, AreNoFilesOfAnyKind) {
    std::string noise;
    for (std::uint32_t i = 1; i < 100000; ++i)
        noise.push_back(static_cast<char>(i * 2654435761U >> 24));
    for (const std::string& bytes :
         {noise, std::string(), std::string("\xFF"), std::string(5000, '\xFF'),
          std::string(5000, '\0'), "\xFF\xFB\x90" + noise}) {
        BytesFile file(bytes);
        const EditedFile edited(file);
        EXPECT_EQ(FormatOf(edited, kLibraries), nullptr);
    }
}

}  // namespace
}  // namespace mavrin2::ontiva
