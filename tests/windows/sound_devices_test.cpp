// The control on the registered companions of the sound devices.

#include "tests/support/pump.h"
#include "tests/windows/component.h"

namespace mavrin2::tests {
namespace {

TEST_F(Component, RecordsAndPlays) {
    const auto control = CreateControl();
    automation::ComPtr<interfaces::IMavrin2Position> position;
    ASSERT_EQ(control->get_Position(position.Put()), S_OK);
    const auto length = [&] {
        LONG frames = -1;
        position->get_TotalSamples(&frames);
        return frames;
    };
    const auto status = [&] {
        SHORT now = -1;
        control->get_Status(&now);
        return now;
    };
    ASSERT_EQ(control->New(interfaces::FrequencyConstants::FQ_44_KHZ,
                           interfaces::ChannelsConstants::STEREO),
              S_OK);
    ASSERT_EQ(control->Record(interfaces::RecordTypeConstants::RECORD_MIX), S_OK);
    EXPECT_EQ(status(), 2);
    EXPECT_TRUE(PumpUntil([&] { return length() > 22'050; }));
    EXPECT_EQ(control->Stop(), S_OK);
    const LONG recorded = length();
    EXPECT_EQ(position->put_StartSelect(recorded - 22'050), S_OK);
    EXPECT_EQ(position->put_EndSelect(recorded), S_OK);
    ASSERT_EQ(control->Play(interfaces::PlayTypeConstants::NORMALPLAY), S_OK);
    EXPECT_EQ(status(), 1);
    EXPECT_TRUE(PumpUntil([&] { return status() == 0; }));
    EXPECT_EQ(length(), recorded);
}

}  // namespace
}  // namespace mavrin2::tests
