// The program with the sound editor itself, as it was built.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/hosts/program.h"

namespace mavrin2::tests {
namespace {

class TheEditor : public testing::Test {
protected:
    TheEditor() { settings_.Environment["MAVRIN2_REGISTRY"] = MAVRIN2_REGISTRY; }

    // Returns the exit code.
    int Run(const std::vector<std::string>& arguments) {
        program_.emplace(arguments, settings_);
        const int code = program_->Finish();
        EXPECT_EQ(program_->Err, "");
        return code;
    }

    ScratchFolder folder_;
    Program::Settings settings_{folder_.Path(), {{"TMPDIR", folder_.Path().string()}}};
    std::optional<Program> program_;
};

TEST_F(TheEditor, DoesWhatAScriptOfAStrangerAsksFor) {
    EXPECT_EQ(Run({"run", MAVRIN2_TEST_SCRIPTS "/editor.lua", MAVRIN2_TEST_SOUND,
                   folder_.Path().string()}),
              0);
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "piece.flac"));
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.Path()))
        EXPECT_NE(entry.path().extension(), ".tmp") << "a work file is left: " << entry;
}

TEST_F(TheEditor, ConvertsAndTellsOfSounds) {
    for (const char* name : {"part.wav", "part.flac", "part.aiff"}) {
        EXPECT_EQ(Run({"convert", MAVRIN2_TEST_SOUND, name, "--start", "0.5", "--end", "0:01.5"}),
                  0);
        EXPECT_EQ(Run({"info", name}), 0);
        EXPECT_THAT(program_->Out, testing::HasSubstr("\nLength    0:00:01.000 (44100 frames)\n"
                                                      "Rate      44100 Hz\n"
                                                      "Channels  2\n"));
    }
}

}  // namespace
}  // namespace mavrin2::tests
