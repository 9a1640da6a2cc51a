// What the companions do on a system without any sound device. CTest runs these cases in such a
// one.

#include "tests/devices/playing_host.h"
#include "tests/devices/recording_host.h"

namespace mavrin2 {
namespace {

class NoOutput : public velto::Playback {};
class NoInput : public rimbal::Capture {};

TEST_F(NoOutput, RefusesToStart) {
    Sound = tests::Noise(1000);
    SHORT count = 0;
    player_->get_DeviceCount(&count);
    EXPECT_EQ(count, 1);
    automation::Bstr name;
    player_->get_DeviceName(name.Put());
    EXPECT_EQ(name.Utf8(), "No sound device");
    EXPECT_EQ(Start(), velto::ErrorConstants::OUTDRIVER);
    QueueNext();
    EXPECT_TRUE(Ended());
    EXPECT_EQ(player_->put_MasterVolume(50), S_OK);
}

TEST_F(NoInput, RefusesToStart) {
    EXPECT_EQ(Start(1000), rimbal::ErrorConstants::INPDRIVER);
    Stop();
    EXPECT_TRUE(Recorded.empty());
}

}  // namespace
}  // namespace mavrin2
