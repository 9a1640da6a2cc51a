#include <gtest/gtest.h>

#include "automation/variant.h"
#include "companions/rimbal/capture_companion.h"
#include "companions/velto/playback_companion.h"
#include "tests/devices/built_servers.h"
#include "tests/support/sound_server/sound_server.h"

namespace mavrin2::devices {
namespace {

template <class Value, class Object, class Owner>
Value Get(Object& object, HRESULT (Owner::*getter)(Value*)) {
    Value value{};
    EXPECT_EQ((object.*getter)(&value), S_OK);
    return value;
}

std::string NameOf(contracts::IVelto2& player, SHORT number) {
    player.put_DeviceNum(number);
    automation::Bstr name;
    player.get_DeviceName(name.Put());
    return name.Utf8();
}

class Mixer : public testing::Test {
protected:
    const automation::ComPtr<velto::PlaybackCompanion> object_ =
        velto::PlaybackCompanion::Make(tests::Servers());
    contracts::IVelto2& player_ = *object_;
};

using contracts::IVelto2;

TEST(Companions, AskNoServerWhenTheyAreMade) {
    bool asked = false;
    const auto servers = [&] {
        return ServerAccess{[&]() -> std::unique_ptr<SoundServer> {
                                asked = true;
                                return nullptr;
                            },
                            platform::SystemClock()};
    };
    const auto player = velto::PlaybackCompanion::Make(servers());
    const auto recorder = rimbal::CaptureCompanion::Make(servers());
    player->put_TimerInterval(50);
    player->put_ExtraLatency(0);
    recorder->put_NotchFilterEnabled(0);
    player->StopDevice();
    recorder->StopDevice();
    EXPECT_FALSE(asked);
    // Without the sound library there is the null device.
    SHORT count = 0;
    recorder->get_DeviceCount(&count);
    EXPECT_TRUE(asked);
    EXPECT_EQ(count, 1);
}

TEST_F(Mixer, ListsTheDefaultDeviceFirst) {
    tests::TestServer server;
    server.Control({"load-module", "module-null-sink", "sink_name=other",
                    "sink_properties=device.description=Second"});
    EXPECT_EQ(Get(player_, &IVelto2::get_DeviceCount), 3);
    server.Control({"set-default-sink", "other"});
    EXPECT_EQ(NameOf(player_, 1), "Default: Second");
    EXPECT_EQ(NameOf(player_, 3), "Second");
    EXPECT_EQ(NameOf(player_, 99), "Second");
    EXPECT_EQ(Get(player_, &IVelto2::get_DeviceNum), 3);
    server.Control({"set-default-sink", "speaker"});
    EXPECT_EQ(NameOf(player_, 3), "Second");
    EXPECT_NE(NameOf(player_, -7), "Default: Second");
    EXPECT_EQ(Get(player_, &IVelto2::get_DeviceNum), 1);
    // A device that goes leaves the default one.
    NameOf(player_, 3);
    server.Control({"unload-module", "2"});
    EXPECT_EQ(Get(player_, &IVelto2::get_DeviceNum), 1);
    EXPECT_EQ(Get(player_, &IVelto2::get_DeviceCount), 2);
    server.Kill();
    EXPECT_EQ(Get(player_, &IVelto2::get_DeviceCount), 1);
    EXPECT_EQ(NameOf(player_, 1), "No sound device");
}

TEST_F(Mixer, ChangesTheSelectedDeviceAlone) {
    tests::TestServer server;
    server.Control({"load-module", "module-null-sink", "sink_name=other"});
    const auto other = velto::PlaybackCompanion::Make(tests::Servers());
    other->put_DeviceNum(3);
    for (const auto& [put, got] : {std::pair<LONG, LONG>{0, 0}, {37, 37}, {-5, 0}, {1000, 100}}) {
        player_.put_MasterVolume(put);
        EXPECT_EQ(Get(player_, &IVelto2::get_MasterVolume), got);
        EXPECT_EQ(Get(player_, &IVelto2::get_LineVolume), got);
        EXPECT_EQ(Get(*other, &IVelto2::get_MasterVolume), 100);
    }
    EXPECT_EQ(Get(player_, &IVelto2::get_LineCount), 1);
    automation::Bstr name;
    player_.get_LineName(name.Put());
    EXPECT_EQ(name.Utf8(), "Master");
    player_.put_LineNum(5);
    EXPECT_EQ(Get(player_, &IVelto2::get_LineNum), 1);

    player_.put_LineVolume(80);
    player_.put_LineBalance(-50);
    EXPECT_EQ(Get(player_, &IVelto2::get_LineBalance), -50);
    EXPECT_EQ(Get(player_, &IVelto2::get_LineVolume), 80);
    EXPECT_EQ(Get(player_, &IVelto2::get_LineControlCount), 2);
    player_.get_LineControlName(2, name.Put());
    EXPECT_EQ(name.Utf8(), "Front Right");
    automation::Variant value;
    player_.get_LineControlValue(2, &value);
    EXPECT_EQ(value.lVal, 40);
    value.vt = VT_BSTR;
    value.bstrVal = automation::NewBstr(std::string_view("80"));
    EXPECT_EQ(player_.put_LineControlValue(2, value), S_OK);
    EXPECT_EQ(Get(player_, &IVelto2::get_LineBalance), 0);
    EXPECT_EQ(player_.put_LineControlValue(9, value), S_OK);

    EXPECT_EQ(Get(player_, &IVelto2::get_LineSwitch), 0);
    player_.put_LineSwitch(VARIANT_TRUE);
    EXPECT_EQ(Get(player_, &IVelto2::get_LineSwitch), 1);
    // An input line's switch is the opposite.
    const auto recorder = rimbal::CaptureCompanion::Make(tests::Servers());
    EXPECT_EQ(Get(*recorder, &contracts::IRimbal2::get_LineSwitch), 1);
    recorder->put_LineSwitch(0);
    EXPECT_EQ(Get(*recorder, &contracts::IRimbal2::get_LineSwitch), 0);
}

}  // namespace
}  // namespace mavrin2::devices
