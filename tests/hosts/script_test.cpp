// Scripts run by the program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "tests/hosts/program.h"

namespace mavrin2::tests {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class Scripts : public testing::Test {
protected:
    // Runs a script of the test's own; returns the exit code.
    int Run(const std::string& text, const std::vector<std::string>& arguments = {}) {
        host_.Write("script.lua", text);
        std::vector<std::string> line{"run", "script.lua"};
        line.insert(line.end(), arguments.begin(), arguments.end());
        program_.emplace(line, host_.In());
        return program_->Finish();
    }
    const std::string& Out() const { return program_->Out; }
    const std::string& Err() const { return program_->Err; }

    HostEnvironment host_;
    std::optional<Program> program_;
};

class ScriptFiles : public testing::TestWithParam<std::string> {};

TEST_P(ScriptFiles, Hold) {
    const HostEnvironment host;
    Program program({"run", MAVRIN2_TEST_SCRIPTS "/" + GetParam() + ".lua"}, host.In());
    EXPECT_EQ(program.Finish(), 0);
    EXPECT_EQ(program.Err, "");
}

INSTANTIATE_TEST_SUITE_P(All, ScriptFiles,
                         testing::Values("values", "members", "errors", "events", "lifetimes"),
                         [](const auto& info) { return info.param; });

TEST_F(Scripts, GetTheirArguments) {
    EXPECT_EQ(Run("print(arg[0], #arg, arg[1], arg[2], ...)", {"--help", "b c"}), 0);
    EXPECT_EQ(Out(), "script.lua\t2\t--help\tb c\t--help\tb c\n");
    EXPECT_EQ(Run("print(#arg, io, os, string, table, math, utf8, coroutine, debug, require)"), 0);
    EXPECT_THAT(Out(), StartsWith("0\ttable:"));
    EXPECT_THAT(Out(), testing::Not(HasSubstr("nil")));
}

TEST_F(Scripts, TellWhyAndWhereTheyFailed) {
    EXPECT_EQ(Run("local t = mavrin2.create('MavrinTest.Thing')\n"
                  "print('begun')\n"
                  "t:Fail(-2147220727, 'File Access error.')\n"),
              1);
    EXPECT_EQ(Out(), "begun\n");
    EXPECT_THAT(Err(), StartsWith("mavrin2: File Access error. (0x80040309)\nstack traceback:\n"));
    EXPECT_THAT(Err(), HasSubstr("script.lua:3: in main chunk"));
    EXPECT_EQ(Run("local editor = mavrin2.create()\n"
                  "local _, saved = pcall(function() editor:New(8000, 1)\n"
                  "  editor:Save('none/a.wav', false) end)\n"
                  "print(saved.file, saved.reason)\n"
                  "editor:Open('script.lua')"),
              1);
    EXPECT_EQ(Out(), "none/a.wav\tNo such file or directory\n");
    EXPECT_THAT(Err(), StartsWith("mavrin2: FormatFile error. (0x80040303): script.lua\nstack"));

    EXPECT_EQ(Run("local t = nil\nt.x = 1"), 1);
    EXPECT_THAT(Err(), StartsWith("mavrin2: script.lua:2: attempt to index a nil value"));
    EXPECT_EQ(Run("error()"), 1);
    EXPECT_THAT(Err(), StartsWith("mavrin2: nil\n"));
    EXPECT_EQ(Run("x ="), 1);
    EXPECT_THAT(Err(), StartsWith("mavrin2: script.lua:1: unexpected symbol near <eof>"));
    Program missing({"run", "missing.lua"}, host_.In());
    EXPECT_EQ(missing.Finish(), 1);
    EXPECT_EQ(missing.Err, "mavrin2: cannot open missing.lua: No such file or directory\n");
}

TEST_F(Scripts, GoOnAfterAHandlerThatFails) {
    EXPECT_EQ(Run("local t = mavrin2.create('MavrinTest.Thing')\n"
                  "local c\n"
                  "c = mavrin2.connect(t, {\n"
                  "  Progress = function() c:close() error('oh') end,\n"
                  "})\n"
                  "mavrin2.connect(t, {Progress = function() t:Fail(-2147467259, 'No.') end,\n"
                  "                    Done = function() print('done') end})\n"
                  "t:Fire(1, '')\n"
                  "coroutine.wrap(function()\n"
                  "  mavrin2.connect(t, {Done = function() coroutine.yield() end})\n"
                  "  t:Fire(2, '')\n"
                  "end)()\n"
                  "print('end')"),
              1);
    EXPECT_EQ(Out(), "done\ndone\nend\n");
    EXPECT_THAT(Err(),
                StartsWith("mavrin2: error in the handler of Progress: script.lua:4: oh\nstack"));
    EXPECT_THAT(Err(),
                HasSubstr("mavrin2: error in the handler of Progress: No. (0x80004005)\nstack"));
    EXPECT_THAT(Err(), HasSubstr("mavrin2: error in the handler of Done: attempt to yield"));

    // Two events in one call.
    EXPECT_EQ(Run("local t = mavrin2.create('MavrinTest.Thing')\n"
                  "mavrin2.connect(t, {Progress = function(percent) error(percent) end})\n"
                  "t:FireLater(1, '')\n"
                  "t:FireLater(2, '')\n"
                  "mavrin2.pump(100)\n"),
              1);
    EXPECT_THAT(Err(), HasSubstr("Progress: 1\n"));
    EXPECT_THAT(Err(), testing::Not(HasSubstr("Progress: 2\n")));
    EXPECT_EQ(Program({"run", "--keep-going", "script.lua"}, host_.In()).Finish(), 0);
}

TEST_F(Scripts, ReleaseEverythingHoweverTheyEnd) {
    const std::string begin =
        "t = mavrin2.create('MavrinTest.Thing')\n"
        "mavrin2.connect(t, {Done = function() t:MakeThing() end})\n"
        "t.Friend = t\n"
        "t.Friend = nil\n";
    // The sanitizer's leak check is the judge.
    EXPECT_EQ(Run(begin + "error('x')"), 1);
    EXPECT_EQ(Run(begin + "os.exit(7)"), 7);
    EXPECT_EQ(Run(begin + "os.exit(true)"), 0);
    EXPECT_EQ(Run(begin + "os.exit(false)"), 1);
    EXPECT_EQ(Run(begin + "coroutine.wrap(function() os.exit(3, false) end)()"), 3);
    EXPECT_EQ(Run("t = setmetatable({}, {__gc = function() print('closed') end}) os.exit()"), 0);
    EXPECT_EQ(Out(), "closed\n") << "leaving early ends the script in order";
}

TEST_F(Scripts, MakeACollageOfThreeFormats) {
    for (const auto& line : std::vector<std::vector<std::string>>{
             {"convert", MAVRIN2_TEST_SOUND, "second.mp3", "--rate", "22050", "--channels", "1"},
             {"convert", MAVRIN2_TEST_SOUND, "third.ogg", "--start", "1"},
             {"run", std::string(MAVRIN2_EXAMPLES) + "/collage.lua", MAVRIN2_TEST_SOUND,
              "second.mp3", "third.ogg", "out.wav"}}) {
        program_.emplace(line, host_.In());
        EXPECT_EQ(program_->Finish(), 0) << Err();
    }
    // A second of the other sound, less the 10 ms of the crossfade.
    EXPECT_THAT(Out(), HasSubstr("redone once                 175959 frames"));
    EXPECT_THAT(Out(), EndsWith("saved out.wav\n"));
    EXPECT_EQ(host_.Read("out.wav").value_or("").size(), 44 + 175959U * 4);
}

TEST_F(Scripts, EndWhenTheyAreInterrupted) {
    for (const char* loop : {"while true do end", "mavrin2.pump(1e9)",
                             "local t = mavrin2.create('MavrinTest.Thing')\n"
                             "mavrin2.connect(t, {Done = function() for i = 1, 1e5 do end end})\n"
                             "while true do t:Fire(1, '') end"}) {
        host_.Write("script.lua",
                    "setmetatable({}, {__gc = function() print('closed') end})\n"
                    "print('begun') io.stdout:flush()\n" +
                        std::string(loop));
        Program program({"run", "script.lua"}, host_.In());
        ASSERT_TRUE(program.AwaitOutput("begun"));
        program.Signal(SIGINT);
        EXPECT_EQ(program.Finish(), 128 + SIGINT) << loop;
        EXPECT_THAT(program.Err, HasSubstr("interrupted"));
        EXPECT_THAT(program.Out, EndsWith("closed\n"));
    }
}

TEST_F(Scripts, LeaveNamesAsTheyWereWhenASaveIsInterrupted) {
    host_.WriteWave("long.wav", 44100, 2, 44100 * 400);
    host_.Write("old.mp3", "older");
    host_.Write("script.lua",
                "local editor = mavrin2.create() editor:Open('long.wav')\n"
                "print('begun') io.stdout:flush() editor:Save(arg[1], false) print('saved')");
    const auto before = host_.Files();
    for (const char* file : {"old.mp3", "new.mp3"}) {
        Program program({"run", "script.lua", file}, host_.In());
        ASSERT_TRUE(program.AwaitOutput("begun"));
        program.Signal(SIGINT);
        EXPECT_EQ(program.Finish(), 128 + SIGINT);
        EXPECT_EQ(program.Out, "begun\n");
        EXPECT_EQ(host_.Read("old.mp3"), "older");
        EXPECT_EQ(host_.Files(), before);
    }
}

TEST_F(Scripts, EditAsTheReadmeSays) {
    Program program(
        {"run", MAVRIN2_TEST_SCRIPTS "/editor.lua", MAVRIN2_TEST_SOUND, host_.Path("").string()},
        host_.In());
    EXPECT_EQ(program.Finish(), 0);
    EXPECT_EQ(program.Err, "");
    EXPECT_TRUE(host_.Read("piece.flac"));
}

}  // namespace
}  // namespace mavrin2::tests
