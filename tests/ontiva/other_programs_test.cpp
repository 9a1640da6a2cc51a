// What programs leave in files beside the usual tags.

#include <fstream>
#include <iterator>

#include "companions/ontiva/chunks/chunk_file.h"
#include "companions/ontiva/files/numbers.h"
#include "companions/ontiva/info_files.h"
#include "platform/memory/memory_replacement_files.h"
#include "tests/ontiva/sound_files.h"
#include "tests/support/damaged_files.h"

namespace mavrin2::ontiva {
namespace {

std::string Data(const char* name) {
    std::ifstream file(std::string(TEST_DATA_DIR "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Containers, AreReadAndNotWritten) {
    for (const char* name : {"chapters.m4a", "chapters.mka"}) {
        const std::string file = Data(name);
        const SoundInfo info = ReadInfo(file);
        EXPECT_EQ(info.Texts.First("TITLE"), "A title") << name;
        EXPECT_EQ(info.Texts.First("ALBUMARTIST"), "Others") << name;
        EXPECT_EQ(info.Texts.First("TRACKNUMBER").substr(0, 1), "3") << name;
        EXPECT_EQ(info.Markers,
                  (std::vector<Marker>{{0, 800, "one", "", "", {}},
                                       {800, 1200, "\xD0\xB4\xD0\xB2\xD0\xB0", "", "", {}}}))
            << name;
        EXPECT_THROW(WithInfo(file, info), NotWritable);
        tests::DamagedFiles damaged(file, 5);
        for (int i = 0; i < 200; ++i)
            ReadInfo(damaged.Next());
    }
}

// A FLAC file with this block after its first one.
std::string WithBlock(const std::string& flac, int type, const std::string& content) {
    constexpr std::size_t kFirst = 4 + 4 + 34;
    std::string block;
    AddNumber(block,
              static_cast<std::uint32_t>(type << 24) | static_cast<std::uint32_t>(content.size()),
              std::endian::big);
    return flac.substr(0, kFirst) + block + content + flac.substr(kFirst);
}

// A track of a cue sheet, with one index at its start.
std::string CueTrack(int number, std::uint64_t offset, int indices) {
    std::string track;
    AddNumber(track, offset, std::endian::big);
    track.push_back(static_cast<char>(number));
    track.append(12 + 1 + 13, '\0');
    track.push_back(static_cast<char>(indices));
    for (int i = 0; i < indices; ++i)
        track.append(8, '\0').append("\1\0\0\0", 4);
    return track;
}

TEST(FlacBlocks, GiveMarkersWhereThereAreNoChapters) {
    constexpr int kApplication = 2;
    constexpr int kCueSheet = 5;
    const std::string flac = MakeSound(SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 3000);
    SoundInfo info;
    info.Markers = {{588, 30, "original", "n", "t", {}}};
    info.Texts.Set("TITLE", "original");
    const std::string wave = WithInfo(MakeSound(SF_FORMAT_WAV | SF_FORMAT_PCM_16, 100), info);
    BytesFile waveFile(wave);
    const EditedFile waveBytes(waveFile);
    const ChunkFile chunks(waveBytes);
    std::string kept = flac;
    for (const Chunk& chunk : chunks.Chunks())
        if (chunk.Id != "data" && chunk.Id != "id3 ")
            kept = WithBlock(kept, kApplication,
                             "riff" + waveBytes.Bytes(chunk.Start, chunk.End() - chunk.Start));
    std::string sheet(128 + 8 + 1 + 258, '\0');
    sheet.push_back(3);
    sheet += CueTrack(1, 0, 1) + CueTrack(2, 588, 1) + CueTrack(255, 3000, 0);
    const std::string tracks = WithBlock(flac, kCueSheet, sheet);

    EXPECT_EQ(ReadInfo(kept).Markers, info.Markers);
    EXPECT_EQ(ReadInfo(kept).Texts.First("TITLE"), "original");
    EXPECT_EQ(ReadInfo(tracks).Markers, (std::vector<Marker>{{0, 0, "Track 01", "", "", {}},
                                                             {588, 0, "Track 02", "", "", {}}}));
    for (const std::string& file : {kept, tracks}) {
        SoundInfo other;
        other.Markers = {{5, 0, "other", "", "", {}}};
        EXPECT_EQ(ReadInfo(WithInfo(file, other)).Markers, other.Markers);
        EXPECT_TRUE(ReadInfo(WithInfo(file, {})).Markers.empty()) << "removed ones stay away";
        EXPECT_EQ(Judge(WithInfo(file, other)).Samples, Judge(flac).Samples);
    }
}

std::string ApeItem(const std::string& name, const std::string& value) {
    std::string item;
    AddNumber(item, static_cast<std::uint32_t>(value.size()), std::endian::little);
    AddNumber(item, std::uint32_t{0}, std::endian::little);
    return item + name + '\0' + value;
}

TEST(ApeTags, AreKeptUpToDateAndKeepWhatDescribesTheFile) {
    const std::string items =
        ApeItem("Title", "old") + ApeItem("REPLAYGAIN_TRACK_GAIN", "-3.00 dB");
    std::string footer = "APETAGEX";
    for (const std::uint32_t number :
         {2000U, static_cast<std::uint32_t>(items.size() + 32), 2U, 0U, 0U, 0U})
        AddNumber(footer, number, std::endian::little);
    const std::string sound = MakeSound(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 20000);
    const std::string file = sound + items + footer + "TAG" + std::string(125, '\0');
    SoundInfo info = ReadInfo(file);
    EXPECT_EQ(info.Texts.First("TITLE"), "old");
    EXPECT_EQ(info.TagVersion, 1);
    info.Texts.Set("TITLE", "new");
    const std::string written = WithInfo(file, info);
    const std::size_t tag = written.size() - 128;
    EXPECT_EQ(written.substr(tag, 6), "TAGnew");
    EXPECT_EQ(written.find("old"), std::string::npos);
    EXPECT_NE(written.find("REPLAYGAIN_TRACK_GAIN"), std::string::npos);
    EXPECT_EQ(ReadInfo(written.substr(written.find("\xFF\xFB"), tag)).Texts.First("TITLE"), "new");
}

// A rating, which is no text, goes from file to file; what an encoder says of itself does not.
TEST(Id3Frames, ThatAreNoTextsTravel) {
    SoundInfo info;
    info.Texts.Set("TITLE", "title");
    info.Frames = {std::string("POPM\0\0\0\x0D\0\0", 10) +
                   std::string("a@b.org\0\xC4\0\0\0\0", 13)};
    const std::string mp3 =
        WithInfo(MakeSound(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 3000), info);
    const SoundInfo read = ReadInfo(mp3);
    EXPECT_EQ(read.Frames, info.Frames);
    EXPECT_EQ(ReadInfo(WithInfo(MakeSound(SF_FORMAT_WAV | SF_FORMAT_PCM_16, 100), read)).Frames,
              info.Frames);
}

TEST(Libraries, AreLoadedOnlyWhenAFileNeedsThem) {
    const auto disk = std::make_shared<platform::MemoryFileSystem>();
    disk->AddFile("/a.wav", MakeSound(SF_FORMAT_WAV | SF_FORMAT_PCM_16, 100));
    disk->AddFile("/a.mp3", MakeSound(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 3000));
    const InfoFiles files(disk, std::make_shared<platform::MemoryReplacementFiles>(disk),
                          std::make_unique<BackendLibraries>(tests::NoBackends()));
    SoundInfo info;
    info.Markers = {{5, 0, "marker", "", "", {}}};
    files.Write("/a.wav", info);
    EXPECT_EQ(files.Read("/a.wav").Markers, info.Markers);
    EXPECT_THROW(files.Read("/a.mp3"), MissingLibrary);
}

}  // namespace
}  // namespace mavrin2::ontiva
