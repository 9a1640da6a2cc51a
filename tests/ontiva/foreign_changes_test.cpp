#include "companions/ontiva/files/numbers.h"
#include "companions/ontiva/markers/exact_marker.h"
#include "companions/ontiva/markers/vorbis_chapters.h"
#include "tests/ontiva/sound_files.h"

namespace mavrin2::ontiva {
namespace {

constexpr std::int32_t kRate = 44100;

const std::vector<Marker> kWritten = {{1001, 20, "a", "note a", "text a", {}},
                                      {1001, 0, "b", "note b", "", {}},
                                      {50001, 7, "c", "", "", {}}};

std::vector<Marker> Changed(void (*change)(Fields&)) {
    Fields comments;
    AddVorbisChapters(comments, kWritten, kRate, false);
    change(comments);
    bool found = false;
    return TakeVorbisChapters(comments, kRate, found);
}

TEST(VorbisChapters, FollowTheChangesOfOtherPrograms) {
    auto expected = kWritten;
    EXPECT_EQ(Changed([](Fields& f) { f.Set("CHAPTER002", "0:00:00.0231"); }), expected);

    expected[1].Position = 88200;  // moved
    EXPECT_EQ(Changed([](Fields& f) { f.Set("CHAPTER002", "00:00:02.000"); }), expected);
    expected = kWritten;
    expected[0].Label = "other";  // renamed
    EXPECT_EQ(Changed([](Fields& f) { f.Set("CHAPTER001NAME", "other"); }), expected);
    expected = {kWritten[1], kWritten[2]};  // removed, and the others numbered anew
    EXPECT_EQ(Changed([](Fields& f) {
                  f.SetAll("CHAPTER001", f.All("CHAPTER002"));
                  f.SetAll("CHAPTER001NAME", f.All("CHAPTER002NAME"));
                  f.SetAll("CHAPTER002", f.All("CHAPTER003"));
                  f.SetAll("CHAPTER002NAME", f.All("CHAPTER003NAME"));
                  f.Erase("CHAPTER003");
              }),
              expected);
    expected = kWritten;
    expected.push_back({88200, 0, "new", "", "http://example.org", {}});
    EXPECT_EQ(Changed([](Fields& f) {
                  f.Set("CHAPTER010", "2");
                  f.Set("CHAPTER010NAME", "new");
                  f.Set("CHAPTER010URL", "http://example.org");
              }),
              expected);
    EXPECT_TRUE(Changed([](Fields& f) {
                    for (const char* name : {"CHAPTER001", "CHAPTER002", "CHAPTER003"})
                        f.Erase(name);
                }).empty());
}

TEST(Chapters, KeepTheExactTimesThatStillRoundToTheirs) {
    const Marker exact{1001, 20, "a", "note", "text", {}};
    const auto read = [&](std::int64_t start, std::int64_t end) {
        return MarkerOf({start, end, "b"}, exact, kRate);
    };
    EXPECT_EQ(read(23, 23), (Marker{1001, 20, "b", "note", "text", {}}));
    EXPECT_EQ(read(23, 40), (Marker{1001, 763, "b", "note", "text", {}}));
    EXPECT_EQ(read(1000, 2000), (Marker{44100, 44100, "b", "note", "text", {}}));
    EXPECT_EQ(read(1000, 1000), (Marker{44100, 0, "b", "note", "text", {}}));
    EXPECT_EQ(MarkerOf({1000, 2500, "x"}, std::nullopt, kRate),
              (Marker{44100, 66150, "x", "", "", {}}));
}

TEST(AiffMarks, HoldWhereAnotherProgramChangedThem) {
    SoundInfo info;
    info.Markers = kWritten;
    std::string bytes = WithInfo(MakeSound(SF_FORMAT_AIFF | SF_FORMAT_PCM_16, 3000), info);
    std::string position;
    AddNumber(position, std::uint32_t{1001}, std::endian::big);
    // The second mark: identifier 2, the position, the length of a label of one character.
    const std::size_t second = bytes.find(std::string("\0\2", 2) + position + '\1');
    ASSERT_NE(second, std::string::npos);
    bytes[second + 5] = '\xFF';
    info.Markers[1].Position = 1001 / 256 * 256 + 255;
    EXPECT_EQ(ReadInfo(bytes).Markers, info.Markers);
}

TEST(Texts, OfOneFileStayAndTheOthersTravel) {
    Fields source;
    source.Set("ALBUMARTIST", "travels");
    source.Set("REPLAYGAIN_TRACK_GAIN", "of the source");
    source.Set("ENCODER", "of the source");
    SoundInfo info;
    info.Texts = source;
    for (const Kind& kind : kKinds) {
        const std::string sound = MakeSound(kind.Format, 3000);
        const Fields read = ReadInfo(WithInfo(sound, info)).Texts;
        EXPECT_EQ(read.First("ALBUMARTIST"), "travels") << kind.Name;
        EXPECT_EQ(read.First("REPLAYGAIN_TRACK_GAIN"), "") << kind.Name;
        EXPECT_EQ(read.First("ENCODER"), ReadInfo(sound).Texts.First("ENCODER")) << kind.Name;
    }
}

}  // namespace
}  // namespace mavrin2::ontiva
