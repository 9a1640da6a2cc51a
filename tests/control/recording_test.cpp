// Recording: what is stored where, what hosts hear of it, and what is left when something fails.

#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2;
using interfaces::IMavrin2Position;
using interfaces::RecordTypeConstants;
using Call = platform::MemoryFileSystem::Operation;

constexpr auto kClear = RecordTypeConstants::RECORD_CLEAR;
constexpr auto kMix = RecordTypeConstants::RECORD_MIX;

class Recording : public ControlTest {
protected:
    Recording() {
        OpenThousand();
        Control->get_DeviceInput(Input.Put());
        Rimbal->Take();
    }

    automation::ComPtr<interfaces::IMavrin2Device> Input;

    std::string Record(RecordTypeConstants type) {
        Rimbal->Take();
        EXPECT_EQ(Control->Record(type), S_OK);
        return Rimbal->Take();
    }
    std::string Hear(const Samples& block) {
        Rimbal->Hear(block);
        return Events->Take();
    }
    std::string Stop() {
        Events->Take();
        Control->Stop();
        return Events->Take();
    }
    // The document as it would be after each block, header and all.
    void ExpectFile(const Samples& samples) {
        EXPECT_EQ(System.Files->Bytes(WorkFile()), WorkFileOf(1000, 1, samples));
        EXPECT_EQ(History().Current()->TotalBytes.Count(),
                  static_cast<std::int64_t>(samples.size()) * 2);
        EXPECT_EQ(System.Files->OpenFiles(), 0);
    }
    LONG Visualization() { return Got(*Control, &IMavrin2::get_RecordVisualizationType); }
};

Samples Overwritten(Samples sound, std::size_t at, const Samples& by) {
    sound.resize(std::max(sound.size(), at + by.size()));
    std::ranges::copy(by, sound.begin() + static_cast<std::ptrdiff_t>(at));
    return sound;
}

TEST_F(Recording, OverwritesAndExtendsACopy) {
    automation::ComPtr<interfaces::IMavrin2Markers> markers;
    Control->get_Markers(markers.Put());
    markers->Insert(950, 20, nullptr, nullptr);
    Select(900, 910);
    EXPECT_EQ(Record(kClear), "Format 1000 1, Buffer 500, Prepare, Start");
    EXPECT_EQ(Events->Take(), "100% end");
    EXPECT_EQ(Status(), 2);
    EXPECT_EQ(Positions(), "selected 900..910 view 0..1000 of 1000");

    const Samples once = Overwritten(Ramp(1000), 900, Samples(60, 7));
    EXPECT_EQ(Hear(Samples(60, 7)), "");
    ExpectFile(once);
    const Samples twice = Overwritten(once, 960, Samples(80, 9));
    Hear(Samples(80, 9));
    ExpectFile(twice);
    EXPECT_EQ(Positions(), "selected 900..910 view 540..1040 of 1040");
    Rimbal->RecordTo(0);
    EXPECT_EQ(Events->Take(), "playposition meter(33,44)");
    Rimbal->RecordTo(140);
    EXPECT_EQ(Events->Take(), "playposition meter(33,44)");
    EXPECT_EQ(Got(*Position, &IMavrin2Position::get_CurrentPosition), 1040);

    // What the recorder still has is stored too.
    Rimbal->Take();
    Rimbal->Blocks = {Samples(5, 1), Samples(3, 2)};
    EXPECT_EQ(Stop(), "meter(0,0)");
    EXPECT_EQ(Rimbal->Take(), "Stop");
    ExpectFile(Overwritten(Overwritten(twice, 1040, Samples(5, 1)), 1045, Samples(3, 2)));
    EXPECT_EQ(Positions(), "select 900..910 view 0..1048 of 1048");
    EXPECT_EQ(Status(), 0);
    Rimbal->RecordTo(200);
    Hear(Samples(5, 1));
    EXPECT_EQ(DocumentSamples().size(), 1048u);
    EXPECT_EQ(Events->Take(), "");

    markers->put_Num(1);
    EXPECT_EQ(Got(*markers, &interfaces::IMavrin2Markers::get_Position), 950);
    Control->Undo();
    ExpectFile(Ramp(1000));
    Control->Redo();
    EXPECT_EQ(DocumentSamples().size(), 1048u);
}

TEST_F(Recording, MixesWithLimits) {
    OpenSound({10000, -10000, 5, 6});
    Record(kMix);
    Hear({30000, -30000, 1});
    Hear({2, 3, 4});
    ExpectFile({32767, -32768, 6, 8, 3, 4});
}

TEST_F(Recording, BeginsWithANewDocument) {
    NewSound();
    Control->put_FileBufferSize(100);
    Events->Take();
    Record(kMix);
    EXPECT_EQ(Events->Take(), "end");
    Hear(Ramp(10));
    Stop();
    ExpectFile(Ramp(10));
    Control->Undo();
    ExpectFile({});
    Control->Close();
    EXPECT_EQ(Record(kMix), "");
}

TEST_F(Recording, CannotBeCancelledWhileTheDocumentIsCopied) {
    OpenSound(Ramp(25000));
    Events->InEvent(1, [&] { Control->Stop(); });
    Record(kClear);
    EXPECT_EQ(Events->Take(), "40% 80% 100% end");
    EXPECT_EQ(Status(), 2);
    Stop();
    // Where the host starts something else, that stands.
    for (const int event : {1, 3}) {
        Events->InEvent(event, [&] { Control->Stop(), Control->Play({}); });
        Record(kClear);
        EXPECT_EQ(Status(), 1);
        EXPECT_EQ(System.Files->OpenFiles(), 0);
        Stop();
    }
}

TEST_F(Recording, EndsWhereABlockCannotBeStored) {
    const std::function<void()> faults[] = {[&] { System.Files->SetFreeSpace(13); },
                                            [&] { System.Files->FailNth(Call::Write, 1); },
                                            [&] { System.Files->Refuse(WorkFile()); }};
    for (const auto& fault : faults) {
        System.Files->SetFreeSpace(std::nullopt);
        System.Files->FailNothing();
        OpenSound(Ramp(100));
        Position->put_StartSelect(95);
        Record(kClear);
        Hear(Ramp(10, 500));
        fault();
        Rimbal->Blocks = {Ramp(20, 600), Ramp(2, 700)};
        Events->Take();
        Rimbal->Hear({1, 2});
        EXPECT_EQ(Events->Take(), "meter(0,0)");
        EXPECT_EQ(LastError(), -18);
        EXPECT_EQ(Status(), 0);
        EXPECT_FALSE(Rimbal->Running);
        ExpectFile(Overwritten(Ramp(100), 95, Ramp(10, 500)));
    }
}

TEST_F(Recording, DoesNotBeginWithoutACopy) {
    for (const Call call : {Call::Create, Call::Open, Call::Write, Call::Read}) {
        System.Files->FailFrom(call, call == Call::Write ? 2 : 1);
        EXPECT_EQ(Record(kClear), "");
        System.Files->FailNothing();
        EXPECT_EQ(LastError(), -18);
        EXPECT_EQ(Status(), 0);
        EXPECT_FALSE(UndoEnabled());
        EXPECT_EQ(TempFiles().size(), 1u);
    }
    Rimbal->StartCode = -15;
    Record(kClear);
    EXPECT_EQ(LastError(), -15);
    EXPECT_EQ(Status(), 2) << "it waits for Stop";
}

TEST_F(Recording, ShowsLessWhenTheSystemIsTooSlow) {
    const std::pair<SHORT, LONG> limits[] = {{0, 1}, {7, 3}, {2, 2}};
    for (const auto& [put, kept] : limits) {
        Control->put_RecordVisualizationType(put);
        EXPECT_EQ(Visualization(), kept);
    }
    Input->put_BufferSize(100);
    Record(kClear);
    System.Time->Compute(40, 40);
    Hear({1});
    EXPECT_EQ(Visualization(), 2);
    System.Time->Compute(50, 31);
    Hear({1});
    EXPECT_EQ(Visualization(), 3);
    Stop();
    Record(kClear);
    EXPECT_EQ(Visualization(), 2);
    Stop();
    for (const LONG size : {0, -7}) {
        Input->put_BufferSize(size);
        EXPECT_EQ(Record(kClear), "Format 1000 1, Buffer 500, Prepare, Start");
        System.Time->Compute(5000, 0);
        Hear({1});
        EXPECT_EQ(Visualization(), 2);
        Stop();
        Rimbal->Take();
    }
    Control->put_RecordVisualizationType(1);
    Record(kClear);
    Events->Take();
    EXPECT_EQ(Hear(Samples(6000)), "");
    EXPECT_EQ(Positions(), "select 0..0 view 2000..6000 of 6000");
    Rimbal->RecordTo(10);
    EXPECT_EQ(Events->Take(), "meter(33,44)");
}

TEST_F(Recording, GivesTheLatestSamplesAndTheGain) {
    Rimbal->ChangeGain(150);
    EXPECT_EQ(Events->Take(), "gain(150)");
    Record(kClear);
    Rimbal->Recent = Ramp(50);
    SAFEARRAY* array = nullptr;
    Control->GetAudioArray(7, &array);
    EXPECT_EQ(automation::ArrayView<std::int16_t>(array).Elements().front(), 43);
    SafeArrayDestroy(array);
    Rimbal->Take();
    Rimbal->RecordTo(1);
    EXPECT_EQ(Rimbal->Take(), "Recent 500");
}

// A handler that ends the run hears no level of it any more.
TEST_F(Recording, RaisesNoMeterOfARunThatAHandlerHasEnded) {
    Record(kClear);
    Events->Take();
    Events->InEvent(1, [&] { Control->Stop(); });
    Rimbal->RecordTo(1);
    EXPECT_EQ(Events->Take(), "playposition meter(0,0)");
    Control->Play({});
    Events->InEvent(1, [&] { Control->Stop(), Control->Play({}); });
    Velto->PlayTo(1);
    EXPECT_EQ(Events->Take(), "playposition meter(0,0) endplay");
    EXPECT_EQ(Status(), 1);
    // Nor does an edit that was stopped take a new run for its own.
    Control->Stop();
    Control->put_FileBufferSize(100);
    Events->Take();
    Select(500, 600);
    Events->InEvent(2, [&] { Control->Stop(), Control->Play({}); });
    Control->DeleteSelect();
    EXPECT_EQ(Status(), 1);
    EXPECT_EQ(DocumentSamples().size(), 1000u);
}

TEST(Devices, BeginWithTheirSettings) {
    ControlWorld world;
    world.Start();
    EXPECT_EQ(world.Velto->Take(), "Timer 50, Latency 0, Timer 10, Timer 10");
    EXPECT_EQ(world.Rimbal->Take(),
              "Timer 50, NotchFilterEnabled 0, LowPassFilterEnabled 0, HighPassFilterEnabled 0, "
              "Timer 10, Timer 10");
    automation::ComPtr<interfaces::IMavrin2Recorder> recorder;
    world.Control->get_Recorder(recorder.Put());
    recorder->put_NotchFilterFrequency(-1.5F);
    EXPECT_EQ(Got(*recorder, &interfaces::IMavrin2Recorder::get_NotchFilterFrequency), -1.5F);
    recorder->put_AGCEnabled(-1);
    EXPECT_EQ(world.Rimbal->Settings["AGCEnabled"], -1);
    world.End();
    EXPECT_EQ(recorder->put_AGCEnabled(0), S_OK);
    EXPECT_EQ(world.Rimbal->Settings["AGCEnabled"], -1) << "its control has gone";
}

TEST(Devices, PassOnToTheCompanionOfTheirKind) {
    using interfaces::IMavrin2Device;
    using interfaces::IMavrin2DeviceLine;
    ControlWorld world;
    world.Start();
    automation::ComPtr<IMavrin2Device> devices[2];
    world.Control->get_DeviceOutput(devices[0].Put());
    world.Control->get_DeviceInput(devices[1].Put());
    automation::ComPtr<IMavrin2DeviceLine> lines[2];
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Got(*devices[i], &IMavrin2Device::get_BufferSize), 500);
        EXPECT_EQ(Got(*devices[i], &IMavrin2Device::get_BufferCount), 2);
        EXPECT_EQ(Got(*devices[i], &IMavrin2Device::get_TimerInterval), 10);
        EXPECT_EQ(Got(*devices[i], &IMavrin2Device::get_Count), 3);
        devices[i]->put_Num(static_cast<SHORT>(2 + i));
        devices[i]->get_DeviceLines(lines[i].Put());
        lines[i]->put_Volume(10 + i);
    }
    EXPECT_EQ(world.Velto->DeviceNum, 2);
    EXPECT_EQ(world.Rimbal->DeviceNum, 3);
    EXPECT_EQ(world.Velto->LineVolume, 10);
    EXPECT_EQ(world.Rimbal->LineVolume, 11);
    EXPECT_EQ(Got(*devices[0], &IMavrin2Device::get_Volume), 50);
    EXPECT_EQ(Got(*devices[1], &IMavrin2Device::get_Volume), 0);
    world.Velto->Take();
    devices[0]->put_TimerInterval(20);
    EXPECT_EQ(world.Velto->Take(), "Timer 20");

    // The switch of an output line is its mute.
    EXPECT_EQ(Got(*lines[0], &IMavrin2DeviceLine::get_Select), 1);
    lines[0]->put_Select(0);
    EXPECT_EQ(world.Velto->LineSwitch, 1);
    lines[1]->put_Select(-1);
    EXPECT_EQ(world.Rimbal->LineSwitch, -1);
    EXPECT_EQ(Got(*lines[1], &IMavrin2DeviceLine::get_Select), -1);

    world.End();
    EXPECT_EQ(lines[0]->put_Volume(1), S_OK);
    EXPECT_EQ(world.Velto->LineVolume, 10);
    devices[0]->put_BufferSize(3);
    EXPECT_EQ(Got(*devices[0], &IMavrin2Device::get_BufferSize), 3);
}

}  // namespace
}  // namespace mavrin2::tests
