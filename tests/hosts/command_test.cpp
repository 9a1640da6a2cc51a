// What a shell user sees of info and convert, against an editor of the tests' own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/hosts/program.h"

namespace mavrin2::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

class Commands : public testing::Test {
protected:
    Commands() {
        host_.Write("tone.wav", "TONE 44100 2 66150\n");
        host_.Write("short.wav", "SHORT 8000 1 4\n");
        for (const char* kind : {"BROKEN", "LOST", "FULL", "EMPTY", "SLOW"})
            host_.Write(std::string(kind) + ".wav", std::string(kind) + " 8000 1 100\n");
        host_.Write("old.flac", "older");
        std::filesystem::create_directory(host_.Path("folder.wav"));
    }

    HostEnvironment host_;
};

TEST_F(Commands, TellTheirUseAndRefuseWhatMakesNoSense) {
    struct {
        Arguments Line;
        int Code;
        const char* Out;
        const char* Err;
    } const cases[] = {
        {{"--help"}, 0, "Usage: mavrin2 COMMAND", ""},
        {{"-h"}, 0, "Usage: mavrin2 COMMAND", ""},
        {{"--version"}, 0, "mavrin2 2.", ""},
        {{"run", "--help"}, 0, "Usage: mavrin2 run", ""},
        {{"info", "--help", "--", "x"}, 0, "Usage: mavrin2 info", ""},
        {{"convert", "-h"}, 0, "Usage: mavrin2 convert", ""},
        {{}, 2, "", "Usage: mavrin2 COMMAND"},
        {{"play"}, 2, "", "mavrin2: unknown command play\nTry 'mavrin2 --help'.\n"},
        {{"--play"}, 2, "", "mavrin2: unknown option --play\n"},
        {{"run"}, 2, "", "mavrin2: run needs a script\nTry 'mavrin2 run --help'.\n"},
        {{"info"}, 2, "", "mavrin2: info needs a file\n"},
        {{"info", "-x", "tone.wav"}, 2, "", "mavrin2: unknown option -x\n"},
        {{"convert", "tone.wav"}, 2, "", "mavrin2: convert needs two files"},
        {{"convert", "a", "b", "c"}, 2, "", "mavrin2: convert needs two files"},
        {{"convert", "tone.wav", "x.wav", "--start"}, 2, "", "mavrin2: --start needs a value\n"},
        {{"convert", "tone.wav", "x.wav", "--end", "1:75"}, 2, "", "mavrin2: --end 1:75: not a"},
        {{"convert", "tone.wav", "x.wav", "--start=-1"}, 2, "", "mavrin2: --start -1: not a time"},
        {{"convert", "tone.wav", "x.xyz"}, 2, "", "mavrin2: x.xyz: the extension tells no format"},
        {{"convert", "tone.wav", "x"}, 2, "", "mavrin2: x: the extension tells no format"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Line));
        Program program(one.Line, host_.In());
        EXPECT_EQ(program.Finish(), one.Code);
        EXPECT_THAT(program.Out, StartsWith(one.Out));
        EXPECT_THAT(program.Err, StartsWith(one.Err));
        EXPECT_EQ(program.Out.empty(), *one.Out == 0);
        EXPECT_EQ(program.Err.empty(), *one.Err == 0);
    }
}

TEST_F(Commands, InfoTellsOfEveryFileThatCanBeRead) {
    Program program({"info", "tone.wav", "missing.wav", "--", "short.wav"}, host_.In());
    EXPECT_EQ(program.Finish(), 1);
    EXPECT_EQ(program.Out,
              "File      tone.wav\n"
              "Format    TONE format\n"
              "Length    0:00:01.500 (66150 frames)\n"
              "Rate      44100 Hz\n"
              "Channels  2\n"
              "\n"
              "File      short.wav\n"
              "Format    SHORT format\n"
              "Length    0:00:00.001 (4 frames)\n"
              "Rate      8000 Hz\n"
              "Channels  1\n");
    EXPECT_EQ(program.Err, "mavrin2: missing.wav: No such file or directory\n");

    Program full({"info", "tone.wav"}, [&] {
        auto settings = host_.In();
        settings.Output = "/dev/full";
        return settings;
    }());
    EXPECT_EQ(full.Finish(), 1);
    EXPECT_EQ(full.Err, "mavrin2: standard output: No space left on device\n");
}

TEST_F(Commands, ConvertWritesTheWholeSoundOrAPieceOfIt) {
    const std::pair<Arguments, const char*> cases[] = {
        {{}, "TONE 0 66150\n"},
        {{"--start", "0.5", "--end", "0:01.25"}, "TONE 22050 55125\n"},
        {{"--start=66149f"}, "TONE 66149 66150\n"},
        {{"--end", "1"}, "TONE 0 44100\n"},
        {{"--start", "0", "--end", "1.5"}, "TONE 0 66150\n"},
    };
    for (const auto& [options, written] : cases) {
        SCOPED_TRACE(testing::PrintToString(options));
        Arguments line{"convert", "tone.wav", "out.FLAC"};
        line.insert(line.end(), options.begin(), options.end());
        Program program(line, host_.In());
        EXPECT_EQ(program.Finish(), 0);
        EXPECT_EQ(program.Out + program.Err, "") << "nothing to say";
        EXPECT_EQ(host_.Read("out.FLAC"), written);
    }
}

TEST_F(Commands, ConvertDestroysNothingWhenItFails) {
    std::filesystem::create_hard_link(host_.Path("tone.wav"), host_.Path("twin.wav"));
    std::filesystem::create_symlink("tone.wav", host_.Path("link.wav"));
    const auto before = host_.Files();
    struct {
        Arguments Line;
        const char* Err;
    } const cases[] = {
        {{"missing.wav", "old.flac"}, "missing.wav: No such file or directory"},
        {{"folder.wav", "old.flac"}, "folder.wav: Is a directory"},
        {{"/dev/null", "old.flac"}, "/dev/null: Not a regular file"},
        {{"BROKEN.wav", "old.flac"}, "BROKEN.wav: Format is not supported."},
        {{"LOST.wav", "old.flac"}, "LOST.wav: No room for it in the temporary folder /tmp/"},
        {{"FULL.wav", "old.flac"}, "old.flac: File Access error."},
        {{"FULL.wav", "new.flac"}, "new.flac: File Access error."},
        {{"EMPTY.wav", "old.flac"}, "old.flac: Nothing was written"},
        {{"tone.wav", "nowhere/x.flac"}, "nowhere/x.flac: No such file or directory"},
        {{"tone.wav", "old.flac/x.flac"}, "old.flac/x.flac: Not a directory"},
        {{"tone.wav", "folder.wav"}, "folder.wav: Is a directory"},
        {{"tone.wav", "tone.wav"}, "tone.wav: Would replace the file that is read"},
        {{"tone.wav", "./tone.wav"}, "./tone.wav: Would replace the file that is read"},
        {{"tone.wav", "twin.wav"}, "twin.wav: Would replace the file that is read"},
        {{"tone.wav", "link.wav"}, "link.wav: Would replace the file that is read"},
        {{"tone.wav", "old.flac", "--start", "1", "--end", "1.0"},
         "tone.wav: Nothing lies between --start and --end"},
        {{"tone.wav", "old.flac", "--start", "1", "--end", "0.5"},
         "tone.wav: Nothing lies between --start and --end"},
        {{"tone.wav", "old.flac", "--start", "1.5"},
         "tone.wav: Nothing lies between --start and --end"},
        {{"tone.wav", "old.flac", "--end", "66151f"},
         "tone.wav: --end lies behind its end at 0:00:01.500 (66150f)"},
        {{"tone.wav", "old.flac", "--start", "2"},
         "tone.wav: --start lies behind its end at 0:00:01.500 (66150f)"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Line));
        Arguments line{"convert"};
        line.insert(line.end(), one.Line.begin(), one.Line.end());
        Program program(line, host_.In());
        EXPECT_EQ(program.Finish(), 1);
        EXPECT_EQ(program.Err, "mavrin2: " + std::string(one.Err) + "\n");
        EXPECT_EQ(host_.Files(), before);
        EXPECT_EQ(host_.Read("old.flac"), "older");
        EXPECT_EQ(host_.Read("tone.wav"), "TONE 44100 2 66150\n");
    }
}

TEST_F(Commands, ConvertReplacesAFileAsIfItHadBeenWrittenInPlace) {
    std::filesystem::permissions(host_.Path("old.flac"), std::filesystem::perms(0640));
    std::filesystem::create_symlink("old.flac", host_.Path("link.flac"));
    EXPECT_EQ(Program({"convert", "tone.wav", "link.flac"}, host_.In()).Finish(), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(host_.Path("link.flac")));
    EXPECT_EQ(host_.Read("old.flac"), "TONE 0 66150\n");
    const auto mode = [&](const char* name) {
        return static_cast<int>(std::filesystem::status(host_.Path(name)).permissions());
    };
    EXPECT_EQ(mode("old.flac"), 0640);

    const mode_t mask = ::umask(022);
    EXPECT_EQ(Program({"convert", "tone.wav", "new.flac"}, host_.In()).Finish(), 0);
    ::umask(mask);
    EXPECT_EQ(mode("new.flac"), 0644);
}

TEST_F(Commands, ConvertCleansUpWhenItIsInterrupted) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const auto before = host_.Files();
        Program program({"convert", "SLOW.wav", "old.flac"}, host_.In());
        ASSERT_TRUE(program.AwaitOutput("begun"));
        program.Signal(signal);
        EXPECT_EQ(program.Finish(), 128 + signal) << "the shell has to learn of it";
        EXPECT_EQ(program.Err, "");
        EXPECT_EQ(host_.Files(), before);
        EXPECT_EQ(host_.Read("old.flac"), "older");
    }
}

TEST_F(Commands, ShowProgressOnATerminalOnly) {
    auto settings = host_.In();
    settings.Terminal = true;
    Program program({"convert", "SLOW.wav", "new.flac"}, settings);
    ASSERT_TRUE(program.AwaitError("Writing [####"));
    program.Signal(SIGINT);
    program.Finish();
    EXPECT_THAT(program.Err, testing::EndsWith(" \r")) << "the bar is wiped away";

    Program quick({"info", "tone.wav"}, settings);
    EXPECT_EQ(quick.Finish(), 0);
    EXPECT_EQ(quick.Err, "") << "what is done at once needs no bar";
}

TEST_F(Commands, FindTheComponentsBesideTheProgram) {
    for (const char* folder : {"bin", "lib"})
        std::filesystem::create_directory(host_.Path(folder));
    std::filesystem::copy_file(MAVRIN2_PROGRAM, host_.Path("bin/mavrin2"));
    std::filesystem::copy_file(host_.Registry(), host_.Path("lib/mavrin2-components"));
    std::filesystem::create_symlink("bin/mavrin2", host_.Path("linked"));
    auto settings = host_.In();
    settings.Path = host_.Path("linked");
    settings.Environment["LD_LIBRARY_PATH"] =
        std::filesystem::path(MAVRIN2_RUNTIME).parent_path().string();
    settings.Environment["MAVRIN2_REGISTRY"] = std::nullopt;
    EXPECT_EQ(Program({"info", "tone.wav"}, settings).Finish(), 0);

    settings.Environment["MAVRIN2_REGISTRY"] = host_.Path("none").string();
    Program other({"info", "tone.wav"}, settings);
    EXPECT_EQ(other.Finish(), 1) << "what the user names comes first";
    EXPECT_THAT(other.Err, HasSubstr("mavrin2: Cannot create KovMavrin2.Mavrin2: "));
}

}  // namespace
}  // namespace mavrin2::tests
