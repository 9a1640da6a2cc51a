#include "control/editor/wave_stream.h"

#include "platform/ports.h"
#include "tests/control/control_test.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::editor {
namespace {

using Mode = WaveStream::Mode;
using tests::Ramp;
using tests::Samples;

class WaveStreamTest : public testing::Test {
protected:
    bool Opens(const std::string& bytes, Mode mode = Mode::Read) {
        files_.AddFile("/x.wav", bytes);
        return stream_.Open("/x.wav", mode);
    }
    Samples ReadSamples(std::size_t count) {
        Samples samples(count);
        const auto read = stream_.Read(std::as_writable_bytes(std::span(samples)));
        samples.resize(read.value_or(0) / 2);
        return samples;
    }
    static bool Write(WaveStream& stream, const Samples& samples) {
        return stream.Write(std::as_bytes(std::span(samples)));
    }

    platform::MemoryFileSystem files_;
    WaveStream stream_{files_};
};

TEST_F(WaveStreamTest, WritesAFileOfTheStatedLayout) {
    ASSERT_TRUE(stream_.Create("/x.wav", 44100, 2));
    EXPECT_EQ(files_.Bytes("/x.wav")->size(), 58u) << "the header is there at once";
    EXPECT_TRUE(Write(stream_, Ramp(10, -5)));
    EXPECT_EQ(files_.Bytes("/x.wav")->size(), 78u) << "and so is every block";
    EXPECT_EQ(stream_.Length(), 20u);
    EXPECT_TRUE(stream_.Close());
    EXPECT_EQ(files_.Bytes("/x.wav"), tests::WorkFileOf(44100, 2, Ramp(10, -5)));
    EXPECT_EQ(stream_.Length() + stream_.DataPos(), 0u);
    EXPECT_FALSE(stream_.Create("/missing/x.wav", 44100, 2));
}

TEST_F(WaveStreamTest, ReadsUpToTheEndOfItsData) {
    files_.AddFile("/x.wav", tests::WorkFileOf(8000, 1, Ramp(10)));
    ASSERT_TRUE(stream_.Open("/x.wav", Mode::Read));
    EXPECT_EQ(stream_.Format().Frequency, 8000u);
    EXPECT_EQ(stream_.Length(), 20u);
    EXPECT_EQ(ReadSamples(4), Ramp(4));
    EXPECT_EQ(stream_.DataPos(), 8u);
    EXPECT_EQ(ReadSamples(100), Ramp(6, 4));
    EXPECT_TRUE(stream_.Seek(16));
    EXPECT_EQ(ReadSamples(1), Samples({8}));
    EXPECT_TRUE(stream_.Seek(1000));
    EXPECT_TRUE(ReadSamples(1).empty());
}

TEST_F(WaveStreamTest, ChangesAFileInPlace) {
    files_.AddFile("/x.wav", tests::WorkFileOf(8000, 1, Ramp(4)));
    ASSERT_TRUE(stream_.Open("/x.wav", Mode::Update));
    stream_.Seek(2);
    EXPECT_TRUE(Write(stream_, {70}));
    EXPECT_EQ(stream_.Length(), 8u);
    stream_.Seek(6);
    EXPECT_TRUE(Write(stream_, {71, 72}));
    EXPECT_EQ(stream_.Length(), 10u);
    EXPECT_TRUE(stream_.Close());
    EXPECT_EQ(files_.Bytes("/x.wav"), tests::WorkFileOf(8000, 1, {0, 70, 2, 71, 72}));
}

// A chunk, with the size it claims where that is not its own.
std::string Chunk(const std::string& name, const std::string& data, int claimed = -1) {
    const auto size = static_cast<std::uint32_t>(claimed < 0 ? data.size() : claimed);
    std::string chunk = name;
    for (int i = 0; i < 4; ++i)
        chunk += static_cast<char>(size >> (8 * i) & 0xff);
    return chunk + data + (data.size() % 2 ? std::string(1, '\0') : "");
}
std::string Riff(const std::string& chunks, const char* form = "WAVE", int claimed = -1) {
    return Chunk("RIFF", form + chunks, claimed);
}
std::string Format(char tag, char bits = 16, std::size_t size = 18) {
    std::string data(18, '\0');
    data[0] = tag, data[2] = 1, data[4] = 100, data[8] = 100, data[12] = 1, data[14] = bits;
    return Chunk("fmt ", data.substr(0, size));
}

TEST_F(WaveStreamTest, LooksAtTheFormAndTheTagOnly) {
    const std::string data = Chunk("data", "abcdef");
    struct {
        const char* What;
        std::string Bytes;
        int Length;  // -1: refused
    } const cases[] = {
        {"as it should be", Riff(Format(1) + data), 6},
        {"eight bits", Riff(Format(1, 8) + data), 6},
        {"chunks of others, one of an odd length", Riff(Chunk("LIST", "odd") + Format(1) + data),
         6},
        {"a short format, filled from what follows", Riff(Format(1, 16, 16) + data), 6},
        {"data before the format", Riff(data + Format(1)), 6},
        {"another tag", Riff(Format(3) + data), -1},
        {"a second format with another tag", Riff(Format(1) + data + Format(2)), -1},
        {"no format", Riff(data), -1},
        {"no data", Riff(Format(1)), -1},
        {"another form", Riff(Format(1) + data, "AVI "), -1},
        {"big-endian", Chunk("RIFX", "WAVE" + Format(1) + data), -1},
        {"nothing", "", -1},
        {"half a header", "RIFF1234WA", -1},
        {"a form that never was closed", Riff(Format(1) + data, "WAVE", 0), -1},
        {"data that end beyond the form", Riff(Format(1) + Chunk("data", "abcdef", 1000)), 0},
        {"a format that ends beyond the form", Riff(Format(1) + data, "WAVE", 20), -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Opens(c.Bytes) ? static_cast<int>(stream_.Length()) : -1, c.Length) << c.What;
        EXPECT_EQ(files_.OpenFiles(), c.Length < 0 ? 0 : 1) << c.What;
    }
    EXPECT_FALSE(stream_.Open("/missing.wav", Mode::Read));
}

TEST_F(WaveStreamTest, ReadsNoMoreThanIsThere) {
    // The size that the header claims is not believed.
    ASSERT_TRUE(Opens(Riff(Format(1) + Chunk("data", "abcdef", 0x7000), "WAVE", 0x7100)));
    EXPECT_EQ(ReadSamples(100).size(), 3u);
    EXPECT_EQ(ReadSamples(100).size(), 0u);
}

// Two gigabytes that are a hole, on the real file system.
TEST_F(WaveStreamTest, CutsWhatIsWrittenAtTheLargestLength) {
    tests::ScratchFolder folder;
    const auto files = platform::SystemPorts().Files;
    WaveStream large(*files);
    ASSERT_TRUE(large.Create(folder.Path() / "large.wav", 44100, 2));
    constexpr std::uint32_t largest = 0x7FFFFFFF;
    large.Seek(largest - 9);
    EXPECT_TRUE(Write(large, Ramp(4))) << "up to a byte before";
    EXPECT_EQ(large.Length(), largest - 1);

    files_.AddFile("/x.wav", tests::WorkFileOf(44100, 2, Ramp(100)));
    ASSERT_TRUE(stream_.Open("/x.wav", Mode::Read));
    const auto memory = platform::HeapBlockMemory();
    BlockBuffer buffer(*memory);
    EXPECT_EQ(stream_.CopyTo(large, 100, buffer), 100u) << "what has no room is passed over";
    EXPECT_EQ(stream_.CopyTo(large, 1000, buffer), 100u);
    EXPECT_TRUE(Write(large, Ramp(4)));
    EXPECT_EQ(large.Length(), largest);
    EXPECT_EQ(large.DataPos(), largest);
    EXPECT_TRUE(large.Close());

    const auto path = folder.Path() / "large.wav";
    EXPECT_EQ(std::filesystem::file_size(path), 58u + largest + 1) << "padded to an even length";
    ASSERT_TRUE(large.Open(path, Mode::Read));
    EXPECT_EQ(large.Length(), largest);
    large.Seek(largest - 9);
    Samples end(5);
    EXPECT_EQ(large.Read(std::as_writable_bytes(std::span(end))), 9u);
    EXPECT_EQ(end, Samples({0, 1, 2, 3, 0}));
}

}  // namespace
}  // namespace mavrin2::editor
