#include "companions/ontiva/chunks/chunk_file.h"
#include "companions/ontiva/files/numbers.h"
#include "tests/ontiva/sound_files.h"

namespace mavrin2::ontiva {
namespace {

constexpr auto kOrder = std::endian::little;

std::string Numbers(std::initializer_list<std::uint32_t> numbers) {
    std::string bytes;
    for (const std::uint32_t number : numbers)
        AddNumber(bytes, number, kOrder);
    return bytes;
}

// A WAV file of these chunks after its format.
std::string Wave(const std::string& chunks) {
    const std::string format =
        RenderChunk("fmt ", Numbers({0x00010001, 44100, 88200, 0x00100002}), kOrder);
    return RenderChunk("RIFF", "WAVE" + format + chunks, kOrder);
}

std::string Point(std::uint32_t id, std::uint32_t position) {
    return Numbers({id, position}) + "data" + Numbers({0, 0, position});
}

std::string Labels(const std::string& entries) {
    return RenderChunk("LIST", "adtl" + entries, kOrder);
}

std::string Text(const char* kind, std::uint32_t id, const std::string& text) {
    return RenderChunk(kind, Numbers({id}) + text, kOrder);
}

const std::string kData = RenderChunk("data", std::string(200, '\1'), kOrder);

SoundInfo WithMarkers(std::vector<Marker> markers) {
    SoundInfo info;
    info.Markers = std::move(markers);
    return info;
}

TEST(WaveMarkers, AreReadFromWhateverProgramsWrite) {
    const auto cue = [](std::uint32_t count, const std::string& points) {
        return RenderChunk("cue ", Numbers({count}) + points, kOrder);
    };
    const struct {
        const char* What;
        std::string Chunks;
        std::vector<Marker> Markers;
    } cases[] = {
        {"labels before the points",
         Labels(Text("labl", 1, "a")) + cue(1, Point(1, 5)),
         {{5, 0, "a", "", "", {}}}},
        {"a count that lies", cue(0xFFFFFFFF, Point(1, 5)), {{5, 0, "", "", "", {}}}},
        {"a point without a label, a label without a point",
         cue(1, Point(1, 5)) + Labels(Text("labl", 2, "b")),
         {{5, 0, "", "", "", {}}}},
        {"one identifier twice",
         cue(2, Point(0, 5) + Point(0, 6)) + Labels(Text("labl", 0, "a") + Text("labl", 0, "b")),
         {{5, 0, "a", "", "", {}}, {6, 0, "b", "", "", {}}}},
        {"a position beyond every sound",
         cue(1, Point(1, 0xFFFFFFFF)),
         {{2147483647, 0, "", "", "", {}}}},
        {"only an order of play",
         cue(1, Numbers({1, 77}) + "data" + Numbers({0, 0, 0})),
         {{77, 0, "", "", "", {}}}},
        {"bytes that are no UTF-8",
         cue(1, Point(1, 5)) + Labels(Text("labl", 1, "caf\xE9 \x80")),
         {{5, 0, "caf\xC3\xA9 \xE2\x82\xAC", "", "", {}}}},
        {"an entry longer than its list",
         cue(1, Point(1, 5)) + Labels(std::string("labl\xFF\xFF\xFF\x7F\1\0\0\0end", 15)),
         {{5, 0, "end", "", "", {}}}},
    };
    for (const auto& [what, chunks, markers] : cases)
        EXPECT_EQ(ReadInfo(Wave(kData + chunks)).Markers, markers) << what;
}

TEST(WaveMarkers, ComeAfterSoundWhoseLengthWasNeverPutIn) {
    for (const std::uint32_t length : {0U, 0xFFFFFFFFU}) {
        std::string sound = Wave("data" + Numbers({length}) + std::string(200, '\1'));
        sound.replace(4, 4, Numbers({length}));
        const SoundInfo info = WithMarkers({{5, 6, "a", "", "", {}}});
        const std::string written = WithInfo(sound, info);
        EXPECT_EQ(ReadInfo(written).Markers, info.Markers);
        EXPECT_EQ(Judge(written).Samples.size(), 100U);
    }
}

TEST(WaveMarkers, TakeThePlaceOfThoseBeforeTheSound) {
    const std::string first =
        Labels(Text("labl", 1, "old")) + RenderChunk("cue ", Numbers({1}) + Point(1, 5), kOrder) +
        RenderChunk(
            "LIST",
            "INFO" + RenderChunk("ISFT", "encoder", kOrder) + RenderChunk("INAM", "old", kOrder),
            kOrder);
    const std::string other = RenderChunk("bext", "kept", kOrder);
    SoundInfo info = WithMarkers({{7, 0, "new", "", "", {}}});
    info.Texts.Set("TITLE", "new");
    const std::string written = WithInfo(Wave(first + other + kData), info);
    EXPECT_EQ(ReadInfo(written).Markers, info.Markers);
    EXPECT_EQ(ReadInfo(written).Texts.First("TITLE"), "new");
    EXPECT_EQ(Judge(written).Labels, std::vector<std::string>{"new"});
    for (const char* kept : {"ISFT", "kept"})
        EXPECT_NE(written.find(kept), std::string::npos) << kept;
    EXPECT_EQ(written.find("old"), std::string::npos);
}

// As a process leaves a file that is killed while it changes it.
// Whether the change is made in the file at all.
bool ExpectOldOrNewAtEachStep(const std::string& before, const SoundInfo& info) {
    BytesFile file(before);
    EditedFile edited(file);
    const auto change = FormatOf(edited, kLibraries)->Write(edited, info);
    if (!change) return false;
    const SoundInfo old = ReadInfo(before);
    const Judged oldJudged = Judge(before);
    for (std::size_t part = 0; part < change->Tail.size(); part += 1 + part / 4) {
        const std::string step = before + change->Tail.substr(0, part);
        EXPECT_EQ(ReadInfo(step).Markers, old.Markers) << part;
        EXPECT_EQ(Judge(step), oldJudged) << part;
    }
    std::string step = before + change->Tail;
    for (const auto& [offset, bytes] : change->Switches) {
        EXPECT_EQ(ReadInfo(step).Markers, old.Markers);
        EXPECT_EQ(Judge(step), oldJudged);
        EXPECT_EQ(offset / 4096, (offset + static_cast<std::int64_t>(bytes.size()) - 1) / 4096);
        step.replace(static_cast<std::size_t>(offset), bytes.size(), bytes);
    }
    EXPECT_EQ(ReadInfo(step).Markers, info.Markers);
    EXPECT_EQ(Judge(step).Samples, oldJudged.Samples);
    EXPECT_EQ(Judge(step).Positions.size(), info.Markers.size());
    return true;
}

TEST(ChunkFiles, ReadAsTheOldOrTheNewOneAtEachStep) {
    for (const int format : {SF_FORMAT_WAV, SF_FORMAT_AIFF}) {
        int inPlace = 0;
        // Sounds that end at each place around the end of a page.
        for (std::size_t frames = 2010; frames < 2030; ++frames) {
            const std::string plain = MakeSound(format | SF_FORMAT_PCM_16, frames);
            const SoundInfo few = WithMarkers({{3, 0, "three", "", "", {}}});
            const SoundInfo more =
                WithMarkers({{9, 1, "a", "n", "t", {}}, {4, 0, "b", "", "", {}}});
            const std::string once = WithInfo(plain, few);
            EXPECT_TRUE(ExpectOldOrNewAtEachStep(plain, few)) << frames;
            inPlace += ExpectOldOrNewAtEachStep(once, more) ? 1 : 0;
            inPlace += ExpectOldOrNewAtEachStep(WithInfo(once, more), few) ? 1 : 0;
        }
        EXPECT_GT(inPlace, 30);
    }
}

}  // namespace
}  // namespace mavrin2::ontiva
