#include "tests/ontiva/sound_files.h"

namespace mavrin2::ontiva {
namespace {

std::vector<Marker> ManyMarkers() {
    return {
        {100, 0, "cue", "a note", "Color:255      CutPoint:0       ", {}},
        {40000, 1000, "past the end", "", "", {1, 2, 3, 4}},
        {7, 20000, "range over all", "", "text", {}},
        {7, 0, "same place", "", "", {}},
        {7, 0, "same place", "twice", "", {}},
        {8, 3, "", "", "", {}},
        {0, 0, "\xD0\xBC\xD0\xB5\xD1\x82\xD0\xBA\xD0\xB0 \xF0\x9F\x8E\xB5", "\xE5\xA5\xBD", "", {}},
        {30001, 2, std::string(3000, 'x') + "\t\\n\n", "tab\tline\r\n", "back\\slash", {}},
        {30000, 44, "unsorted", "", "", {}},
        {2147483647, 2147483647, "the last frame there can be", "", "", {}}};
}

SoundInfo FullInfo() {
    SoundInfo info;
    info.Texts.Set("TITLE", "Title \xC3\xA9");
    info.Texts.SetAll("ARTIST", {"First", "Second \xE5\xA5\xBD"});
    info.Texts.Set("DATE", "2001-05-03");
    info.Texts.Set("TRACKNUMBER", "5/12");
    info.Texts.Set("COMMENT", "comment");
    info.Texts.Set("GENRE", "Jazz");
    info.Texts.Set("ALBUMARTIST", "travels");
    info.Texts.Set("ARTISTSORT", "sorts");
    info.Texts.Set("MOOD", "not in ID3v2.3");
    info.Texts.Set("URL", "http://example.org/");
    info.Pictures = {{3, "image/png", "cover", std::string("\x89PNG\0data", 9)}};
    info.Markers = ManyMarkers();
    return info;
}

TEST_P(EachKind, GivesBackMarkersTextsAndPictures) {
    const std::string sound = Sound();
    const SoundInfo info = FullInfo();
    const std::string written = WithInfo(sound, info);
    SoundInfo read = ReadInfo(written);
    EXPECT_EQ(Judge(written).Samples, Judge(sound).Samples);
    EXPECT_EQ(read.Markers, info.Markers);
    EXPECT_EQ(read.Pictures, info.Pictures);
    for (const auto& [name, values] : info.Texts.Entries())
        EXPECT_EQ(read.Texts.All(name), values) << name;

    // Less takes the place of more, and the file's own fields stay.
    const std::string encoder = ReadInfo(sound).Texts.First("ENCODER");
    SoundInfo less;
    less.Texts.Set("TITLE", "T");
    less.Markers = {{5, 0, "only", "", "", {}}};
    read = ReadInfo(WithInfo(written, less));
    EXPECT_EQ(read.Markers, less.Markers);
    EXPECT_EQ(read.Texts.First("TITLE"), "T");
    EXPECT_EQ(read.Texts.First("ARTIST"), "");
    EXPECT_EQ(read.Texts.First("ENCODER"), encoder);

    EXPECT_TRUE(ReadInfo(WithInfo(written, {})).Markers.empty());
}

TEST_P(EachKind, WritesTheSameAgain) {
    const SoundInfo info = FullInfo();
    const std::string once = WithInfo(Sound(), info);
    EXPECT_TRUE(WithInfo(once, ReadInfo(once)) == once);
}

// More than chapters of comments have numbers, and than a table of contents has entries.
TEST_P(EachKind, HoldsManyMarkers) {
    SoundInfo info;
    for (std::int32_t i = 0; i < 1500; ++i)
        info.Markers.push_back({i * 7 % 40000, i % 3, "m" + std::to_string(i), "", "", {}});
    EXPECT_EQ(ReadInfo(WithInfo(Sound(), info)).Markers, info.Markers);
}

TEST_P(EachKind, IsReadWithoutItsSound) {
    SoundInfo info;
    info.Markers = {{5, 0, "marker", "", "", {}}};
    BytesFile file(WithInfo(Sound(1000000), info));
    EditedFile edited(file);
    EXPECT_EQ(FormatOf(edited, kLibraries)->Read(edited).Markers, info.Markers);
    EXPECT_LE(file.BytesRead, 256U << 10);
}

INSTANTIATE_TEST_SUITE_P(Tags, EachKind, testing::ValuesIn(kKinds),
                         [](const auto& tested) { return tested.param.Name; });

}  // namespace
}  // namespace mavrin2::ontiva
