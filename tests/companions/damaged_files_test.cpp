#include "tests/support/damaged_files.h"

#include "platform/memory/memory_file_system.h"
#include "tests/companions/sound_test.h"
#include "tests/support/peak_memory.h"

namespace mavrin2::dusoro {
namespace {

class DamagedFilesTest : public SoundTest, public testing::WithParamInterface<const char*> {
protected:
    std::string Whole(const std::string& name) {
        if (std::filesystem::exists(Data(name))) return ReadBytes(Data(name));
        EXPECT_TRUE(Save(In(name), {44100, 2}, Noise(60'000, 6000)));
        return ReadBytes(In(name));
    }
};

// Whatever a file contains, opening and reading it ends, gives at most what a file of
// its size could hold, and takes a bounded amount of memory.
TEST_P(DamagedFilesTest, DoNoHarm) {
    const std::string name = GetParam();
    const bool ogg = name == "a.ogg" || name == "a.opus";
    tests::DamagedFiles damaged(Whole(name), 20'240'229, ogg ? tests::SealOggPages : nullptr);
    ReadAll(Data("tone.m4a"));  // with all libraries loaded
    const std::int64_t before = tests::PeakMemory();
    const auto memory = std::make_shared<platform::MemoryFileSystem>();
    const SoundFiles files = FilesOf(memory);
    int opened = 0;
    Samples block(std::size_t{2} * 65536);
    const int variants = std::filesystem::exists(Data(name)) ? 200 : 600;
    for (int i = 0; i < variants; ++i) {
        SCOPED_TRACE(i);
        const std::string bytes = damaged.Next();
        memory->AddFile("/damaged", bytes);
        auto found = files.Open("/damaged", FormatType::Default);
        if (!found) {
            EXPECT_TRUE(found.Error == SoundError::FormatFile ||
                        found.Error == SoundError::FormatNotSupported);
            continue;
        }
        ++opened;
        const SourceDescription& source = found.Result->Description();
        ASSERT_TRUE(source.Delivered.IsUsable());
        const auto most = static_cast<std::int64_t>(bytes.size()) * 8192;
        EXPECT_LE(source.Frames, most);
        std::int64_t read = 0;
        while (const std::size_t frames = found.Result->Read(std::span(block).first(
                   std::size_t{65536} * static_cast<std::size_t>(source.Delivered.Channels)))) {
            read += static_cast<std::int64_t>(frames);
            ASSERT_LE(read, most);
        }
    }
    EXPECT_GT(opened, variants / 10);  // the damage is not so great that nothing is ever decoded
    // The sanitizers keep freed memory for a while: 256 MiB of it.
    EXPECT_LT(tests::PeakMemory() - before, std::int64_t{400} << 20);
}

INSTANTIATE_TEST_SUITE_P(Kinds, DamagedFilesTest,
                         testing::Values("a.wav", "a.flac", "a.ogg", "a.mp3", "a.opus", "tone.m4a",
                                         "tone.wma", "tone.wv", "film.avi"),
                         [](const auto& info) {
                             std::string name = info.param;
                             name[name.find('.')] = '_';
                             return name;
                         });

// What a host is told of a file in which something is wrong, and of a whole one.
TEST_F(DamagedFilesTest, AreReportedByTheirReader) {
    ASSERT_TRUE(Save(In("whole.flac"), {44100, 2}, Noise(60'000, 6000)));
    ASSERT_TRUE(Save(In("whole.wav"), {44100, 2}, Noise(2000)));
    Make(In("loud.wav"), SF_FORMAT_WAV | SF_FORMAT_FLOAT, 8000, 1,
         std::vector<float>{0.5F, 1.0F, -1.5F, 2.0F});
    const std::string flac = ReadBytes(In("whole.flac"));
    const auto changed = [](std::string bytes, std::size_t at) {
        bytes[at] = static_cast<char>(bytes[at] ^ 0x55);
        return bytes;
    };
    WriteBytes(In("broken.flac"), changed(flac, flac.size() / 2));
    WriteBytes(In("checksum.flac"), changed(flac, 30));  // in the description of the stream
    WriteBytes(In("short.flac"), flac.substr(0, flac.size() / 2));
    WriteBytes(In("trailer.flac"), flac + std::string("TAG") + std::string(125, ' '));
    ASSERT_TRUE(Save(In("whole.ogg"), {44100, 2}, Noise(60'000, 6000)));
    const std::string ogg = ReadBytes(In("whole.ogg"));
    WriteBytes(In("cut.ogg"), ogg.substr(0, ogg.size() / 2));
    WriteBytes(In("broken.ogg"), changed(ogg, ogg.size() / 2));
    WriteBytes(In("short.wav"), ReadBytes(In("whole.wav")).substr(0, 44 + 2400));
    Make(In("whole.caf"), SF_FORMAT_CAF | SF_FORMAT_PCM_16, 8000, 1, std::vector<float>(1000));
    const std::string caf = ReadBytes(In("whole.caf"));
    WriteBytes(In("short.caf"), caf.substr(0, caf.size() - 1));
    ASSERT_TRUE(Save(In("whole.mp3"), {44100, 2}, Noise(60'000, 6000)));
    const std::string mp3 = ReadBytes(In("whole.mp3"));
    WriteBytes(In("changed.mp3"), changed(mp3, mp3.size() / 2));
    WriteBytes(In("level.mp3"), changed(mp3, mp3.size() / 2) + "APETAGEX\xD0\7MP3GAIN_UNDO");
    // Without the first frame, which has the tag with length and checksum.
    const std::string bare = mp3.substr(mp3.find("\xFF\xFB", 4));
    WriteBytes(In("bare.mp3"), bare + std::string(1000, '\0'));
    WriteBytes(In("cut.mp3"), bare.substr(0, bare.size() - 50));
    WriteBytes(In("gap.mp3"), bare.substr(0, bare.size() / 2) + bare.substr(bare.size() / 2 + 100));
    const std::string aac = ReadBytes(Data("tone.aac"));
    WriteBytes(In("whole.aac"), aac);
    WriteBytes(In("cut.aac"), aac.substr(0, aac.size() - 9));
    struct {
        const char* Name;
        bool Damaged, ChecksumDiffers, Short;
        bool EndMissing = false;
        std::int64_t Limited = 0;
    } const cases[] = {
        {"whole.flac", false, false, false},    {"broken.flac", true, true, false},
        {"checksum.flac", false, true, false},  {"short.flac", false, true, true},
        {"trailer.flac", false, false, false},  {"whole.wav", false, false, false},
        {"short.wav", false, false, true},      {"loud.wav", false, false, false, false, 2},
        {"whole.ogg", false, false, false},     {"cut.ogg", false, false, false, true},
        {"broken.ogg", true, false, true},      {"whole.caf", false, false, false},
        {"short.caf", false, false, true},      {"whole.mp3", false, false, false},
        {"changed.mp3", false, true, false},    {"level.mp3", false, false, false},
        {"bare.mp3", false, false, false},      {"cut.mp3", false, false, false, true},
        {"gap.mp3", true, false, false},        {"whole.aac", false, false, false},
        {"cut.aac", false, false, false, true},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Name);
        auto opened = files_.Open(In(one.Name), FormatType::Default, {}, true);
        ASSERT_TRUE(opened);
        const SourceDescription source = opened.Result->Description();
        const auto frames =
            static_cast<std::int64_t>(ReadAll(*opened.Result).size()) / source.Delivered.Channels;
        const SourceFaults faults = opened.Result->Faults();
        EXPECT_EQ(faults.DamagedBlocks > 0, one.Damaged);
        EXPECT_EQ(faults.ChecksumDiffers, one.ChecksumDiffers);
        EXPECT_EQ(frames < source.StatedFrames, one.Short);
        EXPECT_EQ(faults.LimitedSamples, one.Limited);
        EXPECT_EQ(faults.EndMissing, one.EndMissing);
    }
}

}  // namespace
}  // namespace mavrin2::dusoro
