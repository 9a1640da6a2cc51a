// The commands for tags, markers and CDs as a shell user sees them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "hosts/script/commands/marker_list.h"
#include "tests/hosts/program.h"

namespace mavrin2::tests {
namespace {

using script::FileMarker;
using testing::ElementsAre;
using testing::HasSubstr;

class StoredInfoCommands : public testing::Test {
protected:
    StoredInfoCommands() { host_.WriteWave("tone.wav", 8000, 1, 12000); }

    // Its output, or its exit code and errors.
    std::string Run(const std::vector<std::string>& line) {
        auto settings = host_.In();
        settings.Environment["MAVRIN2_CD_IMAGES"] = host_.Path("disc.cue").string();
        Program program(line, settings);
        const int code = program.Finish();
        return code == 0 ? program.Out + program.Err
                         : program.Out + std::to_string(code) + " " + program.Err;
    }

    HostEnvironment host_;
};

TEST_F(StoredInfoCommands, TagsAreShownAndChangedInACopyOrInPlace) {
    EXPECT_EQ(Run({"tags", "tone.wav"}), "");
    EXPECT_EQ(Run({"tags", "tone.wav", "Title=A = b", "Track=7", "Genre=Ambient", "Comments=a\nb",
                   "copy.WAV"}),
              "");
    EXPECT_EQ(Run({"tags", "copy.WAV"}),
              "Title              A = b\nTrack              7\nGenre              Ambient\n"
              "Comments           a\n                   b\nMp3TagInfoVersion  3\n");
    EXPECT_EQ(host_.Read("tone.wav")->substr(8), host_.Read("copy.WAV")->substr(8, 36 + 24000));
    EXPECT_EQ(Run({"tags", "copy.WAV", "Title=é", "Track=", "copy.WAV"}), "");
    EXPECT_THAT(Run({"tags", "copy.WAV"}), testing::StartsWith("Title              é\nGenre"));
}

TEST_F(StoredInfoCommands, SayWhatIsWrong) {
    host_.Write("raw.vox", "noise");
    host_.Write("list.txt", "0\t1\tfine\n2\t1\tends before it starts\n");
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"tags"}, "2 mavrin2: tags needs a file\n"},
        {{"tags", "missing.wav"}, "1 mavrin2: missing.wav: No such file or directory\n"},
        {{"tags", "tone.wav", "Title=x"},
         "2 mavrin2: tags needs FILE, one or more NAME=VALUE, and"},
        {{"tags", "tone.wav", "out.wav"},
         "2 mavrin2: tags needs FILE, one or more NAME=VALUE, and"},
        {{"tags", "tone.wav", "Titel=x", "out.wav"}, "2 mavrin2: unknown tag 'Titel'; try Title, "},
        {{"tags", "tone.wav", "Year=soon", "out.wav"}, "2 mavrin2: invalid value 'soon' for Year"},
        {{"tags", "tone.wav", "Track=40000", "out.wav"}, "try a number, 0 to 32767\n"},
        {{"tags", "tone.wav", "Title=x", "out.mp3"}, "needs the extension of its format, '.wav'\n"},
        {{"tags", "raw.vox", "Title=x", "out.vox"},
         "1 mavrin2: out.vox: files of this kind have no"},
        {{"markers"}, "2 mavrin2: markers needs one file; --from LIST writes"},
        {{"markers", "tone.wav", "--from", "list.txt"},
         "2 mavrin2: markers --from needs two files"},
        {{"markers", "tone.wav", "--from", "list.txt", "out.wav"},
         "1 mavrin2: list.txt:2: not a marker; try start and end in seconds and a label"},
        {{"cd", "/dev/none"}, "1 mavrin2: /dev/none: is not a CD drive; `mavrin2 cd` lists them\n"},
        {{"info", "/dev/none/Track01.cda"}, "'/dev/none' is not a CD drive; `mavrin2 cd` lists th"},
        {{"join", "out.wav", "tone.wav", "/dev/none/Track01.cda"}, "is a track of a CD; try"}};
    const auto before = host_.Files();
    for (const auto& [line, expected] : cases) {
        SCOPED_TRACE(testing::PrintToString(line));
        EXPECT_THAT(Run(line), HasSubstr(expected));
    }
    EXPECT_EQ(host_.Files(), before);
}

TEST_F(StoredInfoCommands, MarkersGoThroughLists) {
    host_.Write("list.txt",
                "\xEF\xBB\xBF"
                "0.5\t1.25\tRefrain é\r\n\\\t100\t200\n\n0.1\t0.1\t\n");
    EXPECT_EQ(Run({"markers", "tone.wav", "--from=list.txt", "out.wav"}), "");
    const std::string lines = "0.500000\t1.250000\tRefrain é\n0.100000\t0.100000\t\n";
    EXPECT_EQ(Run({"markers", "out.wav"}), lines);
    host_.Write("list.txt", "");
    EXPECT_EQ(Run({"markers", "out.wav", "--from", "list.txt", "out.wav"}), "");
    EXPECT_EQ(Run({"markers", "out.wav"}), "");
}

TEST_F(StoredInfoCommands, ConvertingKeepsWhatIsInTheConvertedPart) {
    host_.Write("list.txt",
                "0.1\t0.1\tbefore\n0.25\t1\tover it\n0.75\t0.75\tin it\n1.2\t1.3\tafter\n");
    Run({"tags", "tone.wav", "Title=é", "Track=7", "in.wav"});
    Run({"markers", "in.wav", "--from", "list.txt", "in.wav"});
    const std::string all = Run({"markers", "in.wav"});
    for (const char* out : {"out.flac", "out.mp3", "out.wav"}) {
        EXPECT_EQ(Run({"convert", "in.wav", out}), "");
        EXPECT_EQ(Run({"markers", out}), all) << out;
        EXPECT_THAT(Run({"tags", out}),
                    testing::StartsWith("Title              é\nTrack              7\n"));
        const std::string part = "0.000000\t0.500000\tover it\n0.250000\t0.250000\tin it\n";
        EXPECT_EQ(Run({"convert", "in.wav", out, "--start", "0.5", "--end", "1"}), "");
        EXPECT_EQ(Run({"markers", out}), part) << out;
        EXPECT_EQ(
            Run({"convert", "in.wav", out, "--start", "0.5", "--end", "1", "--rate", "16000"}), "");
        EXPECT_EQ(Run({"markers", out}), part) << out;
        EXPECT_EQ(Run({"convert", "in.wav", out, "--bare"}), "");
        EXPECT_EQ(Run({"markers", out}) + Run({"tags", out}), "") << out;
    }
    EXPECT_EQ(
        Run({"convert", "in.wav", "out.vox"}),
        "mavrin2: out.vox: written without Title, Track, markers; files of this kind do not have "
        "them\n");
    EXPECT_EQ(Run({"convert", "in.wav", "out.vox", "--bare"}), "");
}

TEST(MarkerList, KeepsWhatAListDoesNotTellAndEveryFrame) {
    std::vector<FileMarker> markers;
    for (const std::int32_t rate : {8000, 44100, 192000, 655350}) {
        markers = {{2147483646, 1, "a\tb\nc", "note", "text", {1, 2, 3, 4}},
                   {7, 0, "same", "1", "", {}},
                   {7, 0, "same", "2", "", {}}};
        for (std::int32_t i = 0; i < 2000; ++i)
            markers.push_back({i * 7919, i * 31, std::to_string(i), "", "", {}});
        std::istringstream list(script::MarkerLines(markers, rate));
        const auto read = script::ReadMarkerList(list, "list", rate, markers);
        ASSERT_EQ(read.size(), markers.size());
        for (std::size_t i = 0; i < read.size(); ++i) {
            EXPECT_EQ(read[i].Position, markers[i].Position);
            EXPECT_EQ(read[i].Length, markers[i].Length);
            EXPECT_EQ(read[i].Note, markers[i].Note);
        }
        EXPECT_EQ(read[0].Label, markers[0].Label);
        EXPECT_EQ(read[0].Numbers, markers[0].Numbers);
    }
    for (const char* line :
         {"1", "1\tx\ta", "-1\t2\ta", "1e9\t1e9\ta", "nan\tnan\ta", "1,5\t2\ta"}) {
        std::istringstream list(line);
        EXPECT_THROW(script::ReadMarkerList(list, "list", 44100, {}), std::runtime_error) << line;
    }
}

TEST_F(StoredInfoCommands, TracksOfDiscsAreListedAndConverted) {
    // Two sectors a track: sound, data, sound that is cut off.
    std::string sound(2352 * 6 - 2352 / 2, '\0');
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = static_cast<char>(i * 31 >> 5);
    host_.Write("disc.bin", sound);
    host_.Write("disc.cue",
                "FILE \"disc.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"
                "TRACK 02 MODE1/2352\nINDEX 01 00:00:02\nTRACK 03 AUDIO\nINDEX 01 00:00:04\n");
    const std::string disc = host_.Path("disc.cue").string();
    EXPECT_THAT(Run({"cd", disc}), testing::StartsWith(disc + "/Track01.cda  0:00:00.027\n" + disc +
                                                       "/Track02.cda  data\n"));
    EXPECT_EQ(Run({"convert", "disc.cue/Track01.cda", "out.wav"}), "");
    EXPECT_EQ(host_.Read("out.wav")->substr(44), sound.substr(0, 2 * 2352));
    EXPECT_THAT(Run({"convert", "disc.cue/Track02.cda", "data.wav"}), HasSubstr("has no sound\n"));
    EXPECT_THAT(Run({"convert", "disc.cue/Track09.cda", "none.wav"}), HasSubstr("no such track"));
    EXPECT_THAT(host_.Files(), ElementsAre("disc.bin", "disc.cue", "out.wav", "tone.wav"));
}

}  // namespace
}  // namespace mavrin2::tests
