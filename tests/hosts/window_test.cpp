// The real control in the program's windows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/hosts/program.h"

namespace mavrin2::tests {
namespace {

using testing::StartsWith;

class HostWindows : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return host_.Path(name).string(); }

    HostEnvironment host_;
};

TEST_F(HostWindows, ShowAControlThatKnowsThemAsContainersOnly) {
    Program program({"run", MAVRIN2_TEST_SCRIPTS "/window.lua", MAVRIN2_TEST_SOUND, Path("")},
                    host_.In());
    EXPECT_EQ(program.Finish(), 0);
    EXPECT_EQ(program.Out, "held\n");
    EXPECT_EQ(program.Err, "");
}

TEST_F(HostWindows, ShowNothingButControls) {
    host_.Write("script.lua", "mavrin2.window(mavrin2.create('MavrinTest.Thing'), 10, 10)");
    Program program({"run", "script.lua"}, host_.In());
    EXPECT_EQ(program.Finish(), 1);
    EXPECT_THAT(program.Err, StartsWith("mavrin2: The object cannot be shown in a window."));
}

}  // namespace
}  // namespace mavrin2::tests
