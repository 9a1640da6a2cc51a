// Playing: what the player is asked to do, what hosts hear of it, and where the cursor is.

#include <cmath>
#include <limits>

#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2;
using interfaces::IMavrin2Position;
using interfaces::PlayTypeConstants;

constexpr auto kNormal = PlayTypeConstants::NORMALPLAY;
constexpr auto kToEnd = PlayTypeConstants::PLAYTOEND;
constexpr auto kLooped = PlayTypeConstants::PLAYLOOPED;
constexpr const char* kStart = "Stop, Format 1000 1, Prepare, Start";

class Playing : public ControlTest {
protected:
    Playing() {
        OpenThousand();
        Control->get_DeviceOutput(Output.Put());
        Velto->Take();
    }

    automation::ComPtr<interfaces::IMavrin2Device> Output;

    // What the player was asked to do by it.
    std::string Play(PlayTypeConstants type = kNormal) {
        Velto->Take();
        EXPECT_EQ(Control->Play(type), S_OK);
        return Velto->Take();
    }
    std::string PlayTo(LONG frames) {
        Velto->PlayTo(frames);
        return Events->Take();
    }
    LONG Current() { return Got(*Position, &IMavrin2Position::get_CurrentPosition); }
    void SetSpeed(float percent) {
        Control->put_PlaySpeedEnabled(-1);
        Control->put_PlaySpeedPercent(percent);
    }
};

TEST_F(Playing, GivesTheSelectionToThePlayerInBlocks) {
    Select(100, 900);
    // Ten milliseconds are left out at both ends.
    EXPECT_EQ(Play(), std::string(kStart) + ", Queue 500, Queue 280");
    EXPECT_EQ(Velto->Queued[0], Ramp(500, 110));
    EXPECT_EQ(Velto->Queued[1], Ramp(280, 610));
    EXPECT_EQ(Status(), 1);
    EXPECT_EQ(Current(), 110);
    Velto->FinishBlock();
    EXPECT_EQ(Velto->Take(), "");
    EXPECT_EQ(PlayTo(0), "");
    EXPECT_EQ(PlayTo(100), "playposition meter(11,22)");
    EXPECT_EQ(PlayTo(250), "playposition meter(11,22)");
    EXPECT_EQ(Current(), 360);
    Control->Save(nullptr, 0, {});
    Control->put_TypeView(interfaces::TypeViewConstants::SPECTRAL);
    EXPECT_EQ(Events->Take(), "") << "the control is busy";
    Velto->RunOut();
    EXPECT_EQ(Events->Take(), "meter(0,0) endplay");
    EXPECT_EQ(Status(), 0);
    Velto->RunOut();
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(Playing, EndsWithTheViewTheSelectionOrTheDocument) {
    const auto values = [&] {
        std::size_t count = 0;
        for (const auto& block : Velto->Queued)
            count += block.size();
        return count;
    };
    Control->Zoom(0, 300);
    Play();
    EXPECT_EQ(values(), 290u);
    Control->Stop();
    Play(kToEnd);
    EXPECT_EQ(values(), 990u);
    Control->Stop();
    // Shown from the selection's start, which is before the view.
    Control->Zoom(400, 500);
    Play();
    EXPECT_EQ(Positions(), "select 0..0 view 0..100 of 1000");
    Control->Stop();
    Control->ZoomFull();
    Control->Zoom(0, 300);
    Position->put_StartSelect(301);
    Events->Take();
    EXPECT_EQ(Play(), "") << "it starts past the end of the view";
    EXPECT_EQ(Status(), 0);
}

TEST_F(Playing, LeavesOutFourBytesPerMillisecondOfStereoSound) {
    Dusoro->Source.Frequency = 44100;
    OpenSound(Samples(100000), 2);
    Select(10000, 20000);
    Control->Play(kNormal);
    EXPECT_EQ(Current(), 10000 + 1764 / 4);
    std::size_t count = 0;
    for (const auto& block : Velto->Queued)
        count += block.size() * 2;
    EXPECT_EQ(count, 10000u * 4 - 2 * 1764);
}

TEST_F(Playing, ChoosesTheChannelsThatAreEdited) {
    OpenSound(Ramp(2000), 2);
    automation::ComPtr<interfaces::IMavrin2Channel> channels;
    Control->get_Channels(channels.Put());
    const auto chosen = [&](SHORT left, SHORT right) {
        for (const SHORT channel : {SHORT{1}, SHORT{2}}) {
            channels->put_Num(channel);
            channels->put_Operation(channel == 1 ? left : right);
        }
        const std::string calls = Play();
        Control->Stop();
        Velto->Take();
        const auto at = calls.find("Channels ");
        return at == std::string::npos ? '-' : calls[at + 9];
    };
    EXPECT_EQ(chosen(1, 0), '1');
    EXPECT_EQ(chosen(0, 1), '2');
    EXPECT_EQ(chosen(1, 1), '3');
    EXPECT_EQ(chosen(0, 0), '-');
}

TEST_F(Playing, TurnsThePageWhenTheCursorLeavesTheView) {
    Control->Zoom(0, 200);
    Play(kToEnd);
    Events->Take();
    EXPECT_EQ(PlayTo(100), "playposition meter(11,22)");
    EXPECT_EQ(PlayTo(300), "playposition meter(11,22)");
    EXPECT_EQ(Positions(), "select 0..0 view 210..410 of 1000");
    EXPECT_EQ(PlayTo(980), "playposition meter(11,22)");
    EXPECT_EQ(Positions(), "select 0..0 view 800..1000 of 1000");
}

TEST_F(Playing, Loops) {
    Select(100, 900);
    Play(kLooped);
    // Read on from the start in the same call.
    Velto->FinishBlock();
    EXPECT_EQ(Velto->Queued[2], Ramp(500, 100));
    Velto->Take();
    EXPECT_EQ(PlayTo(789), "playposition meter(11,22)");
    EXPECT_EQ(PlayTo(790), "meter(11,22)");
    EXPECT_EQ(Velto->Take(), "Stop, " + std::string(kStart) + ", Queue 500, Queue 280");
    EXPECT_EQ(Current(), 110);
    EXPECT_EQ(Status(), 1);
    // It cannot begin again where its start is past the end of the view.
    Control->Zoom(0, 50);
    Events->Take();
    EXPECT_EQ(PlayTo(790), "meter(0,0) endplay");
    EXPECT_EQ(Status(), 0);
}

TEST_F(Playing, OfTooLittleQueuesNothing) {
    const std::pair<LONG, LONG> selections[] = {{100, 100}, {100, 101}, {100, 119}};
    for (const auto& [first, end] : selections) {
        for (const auto type : {kNormal, kLooped}) {
            SCOPED_TRACE(end);
            Select(first, end);
            // A loop goes on from the selection's start itself.
            const bool some = type == kLooped && end - first > 10;
            EXPECT_EQ(Play(type).find("Queue") != std::string::npos, some);
            Velto->RunOut();
            EXPECT_EQ(Events->Take(), "meter(0,0) endplay");
        }
    }
    Position->put_Selected(0);
    Position->put_StartSelect(0);
    for (const LONG size : {LONG{0}, LONG{-1}, std::numeric_limits<LONG>::min()}) {
        Output->put_BufferSize(size);
        for (const auto type : {kNormal, kLooped}) {
            EXPECT_EQ(Play(type), kStart) << size;
            Control->Stop();
        }
    }
    Output->put_BufferSize(std::numeric_limits<LONG>::max());
    EXPECT_EQ(Play(), std::string(kStart) + ", Queue 990");
    Control->Stop();
    Output->put_BufferSize(500);
    Output->put_BufferCount(0);
    EXPECT_EQ(Play(), kStart);
}

TEST_F(Playing, AtAnotherSpeedCoversTheSoundOnce) {
    Select(0, 1000);
    SetSpeed(200);
    Play();
    EXPECT_EQ(Velto->Queued[0].size(), 1000u);
    EXPECT_EQ(Velto->Queued[0], Converted(Ramp(500, 10), {1000, 1, 16}, {2000, 1, 16}, 500));
    EXPECT_EQ(Velto->Queued[1].size(), 960u);
    PlayTo(1001);  // 500.5 frames
    EXPECT_EQ(Current(), 10 + 500);
    // Rounding up does not add up.
    Control->Stop();
    SetSpeed(70);
    Play();
    for (LONG frames = 1; frames <= 693; ++frames)
        Velto->PlayTo(frames);
    EXPECT_EQ(Current(), 10 + 990);
    EXPECT_EQ(History().Current()->PlayPosition, editor::Bytes(2000));
}

TEST_F(Playing, LimitsTheSpeed) {
    const std::pair<float, std::size_t> cases[] = {{1, 50},    {-5, 50},         {1e9F, 5000},
                                                   {NAN, 500}, {INFINITY, 5000}, {10, 50}};
    for (const auto& [percent, values] : cases) {
        SetSpeed(percent);
        const float kept = Got(*Control, &IMavrin2::get_PlaySpeedPercent);
        EXPECT_TRUE(kept == percent || std::isnan(percent));
        Play();
        // The converter has no samples after the last one.
        EXPECT_NEAR(static_cast<double>(Velto->Queued[0].size()), static_cast<double>(values), 8)
            << percent;
        PlayTo(10);
        Control->Stop();
    }
    // A rate below one hertz.
    NewSound();
    Control->New(interfaces::FrequencyConstants{5}, interfaces::ChannelsConstants::STEREO);
    PutAudioArray(Ramp(40));
    SetSpeed(10);
    Play();
    Control->Stop();
}

TEST_F(Playing, PausesAndGoesOn) {
    Control->Pause();
    EXPECT_EQ(Control->Continue(), S_OK);
    EXPECT_EQ(Velto->Take(), "") << "nothing plays";
    Output->put_BufferSize(100);
    Output->put_BufferCount(1);
    Play();
    Control->Continue();
    PlayTo(95);
    Control->Pause();
    EXPECT_EQ(Status(), 5);
    EXPECT_EQ(Velto->Take(), "Stop");
    Velto->FinishBlock();
    EXPECT_EQ(Velto->Take(), "");
    EXPECT_EQ(Current(), 105);
    SAFEARRAY* array = nullptr;
    Control->GetAudioArray(10, &array);
    EXPECT_EQ(automation::ArrayView<std::int16_t>(array).Elements().size(), 10u);
    SafeArrayDestroy(array);
    EXPECT_EQ(Status(), 5);

    Output->put_BufferSize(7);  // of the next Play
    EXPECT_EQ(Control->Continue(), S_OK);
    EXPECT_EQ(Velto->Take(), "Format 1000 1, Prepare, Start, Queue 100, Queue 100, Queue 100");
    EXPECT_EQ(Velto->Queued[0], Ramp(100, 105));
    EXPECT_EQ(Status(), 1);
    PlayTo(20);
    EXPECT_EQ(Current(), 125);

    Control->Pause();
    Velto->StartCode = -14;
    EXPECT_EQ(static_cast<std::uint32_t>(Control->Continue()), 0x80040305u);
    EXPECT_EQ(LastError(), -14);
    EXPECT_EQ(Status(), 0);
    Events->Take();
    Velto->RunOut();
    EXPECT_EQ(Events->Take(), "");
    EXPECT_EQ(Play(), std::string(kStart) + ", Queue 7");
    EXPECT_EQ(LastError(), -14);
    EXPECT_EQ(Status(), 1);
    Velto->RunOut();
    EXPECT_EQ(Events->Take(), "meter(0,0) endplay");
}

// At a changed speed a pause may come in the middle of a frame.
TEST_F(Playing, GoesOnAtTheBeginningOfAFrame) {
    OpenSound(Ramp(2000), 2);
    SetSpeed(70);
    Play();
    PlayTo(1);
    Control->Pause();
    EXPECT_EQ(History().Current()->PlayPosition.Count() % 4, 2);
    Control->put_PlaySpeedEnabled(0);
    Control->Continue();
    EXPECT_EQ(Velto->Queued[0].front() % 2, 0) << "the left channel";
}

TEST_F(Playing, GivesTheLatestSamples) {
    Velto->Recent = Ramp(50);
    Play();
    SAFEARRAY* array = nullptr;
    Control->GetAudioArray(20, &array);
    const automation::SafeArray<std::int16_t> samples = [&] {
        automation::SafeArray<std::int16_t> owner;
        *owner.Put() = array;
        return owner;
    }();
    const automation::ArrayView<std::int16_t> view(samples.Get());
    EXPECT_TRUE(std::ranges::equal(view.Elements(), Ramp(20, 30)));
    EXPECT_EQ(Velto->Take(), "Recent 20");
}

TEST_F(Playing, StopsWhenTheCursorIsMoved) {
    Play();
    Position->put_CurrentPosition(500);
    EXPECT_EQ(Events->Take(), "position meter(0,0) endplay");
    EXPECT_EQ(Velto->Take(), "Stop");
    EXPECT_EQ(Current(), 500);
}

TEST_F(Playing, SkipsABlockThatCannotBeRead) {
    System.Files->FailNth(platform::MemoryFileSystem::Operation::Open, 1);
    EXPECT_EQ(Play(), std::string(kStart) + ", Queue 500");
    EXPECT_EQ(System.Files->OpenFiles(), 0);
}

TEST_F(Playing, EndsQuietlyWithItsDocument) {
    // A host that loops by itself.
    Play();
    Events->InEvent(2, [&] { Play(); });
    Control->Close();
    EXPECT_EQ(Status(), 0);
    EXPECT_FALSE(Velto->Running);
    EXPECT_EQ(History().Current(), nullptr);
    Velto->PlayTo(3);
    Velto->FinishBlock();

    // One that opens another document at the end.
    OpenThousand();
    Play();
    Events->InEvent(2, [&] {
        Dusoro->Source.Samples = Ramp(70);
        Open("/nested.wav");
    });
    Dusoro->Source.Samples = Ramp(300);
    Open("/outer.wav");
    EXPECT_EQ(DocumentSamples().size(), 70u);
    EXPECT_FALSE(History().CanStepBack());
}

}  // namespace
}  // namespace mavrin2::tests
