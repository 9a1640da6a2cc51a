#include <sys/stat.h>
#include <unistd.h>

#include "tests/companions/sound_test.h"

namespace mavrin2::dusoro {
namespace {

using UnreadableFilesTest = SoundTest;

TEST_F(UnreadableFilesTest, CannotBeOpened) {
    ASSERT_EQ(mkfifo(In("pipe.wav").c_str(), 0600), 0);
    EXPECT_EQ(OpenError(In("pipe.wav")), SoundError::FileAccess);

    if (geteuid() == 0) return;  // who may read everything
    ASSERT_TRUE(Save(In("secret.wav"), {44100, 2}, Noise(100)));
    ASSERT_EQ(chmod(In("secret.wav").c_str(), 0), 0);
    EXPECT_EQ(OpenError(In("secret.wav")), SoundError::FileAccess);
}

}  // namespace
}  // namespace mavrin2::dusoro
