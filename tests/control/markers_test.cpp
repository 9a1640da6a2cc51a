// The markers of a document: what hosts do with them, how they stay on their sound, and how they
// come into files.

#include <algorithm>
#include <random>
#include <stdexcept>

#include "automation/text.h"
#include "platform/picture_object.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using interfaces::IMavrin2MarkerDetails;
using interfaces::IMavrin2Markers;
using Marker = FakeOntiva::Marker;

// Of a control, or of none.
struct HostedMarkers {
    ComPtr<interfaces::IMavrin2Markers> Object;

    explicit HostedMarkers(interfaces::IMavrin2* control) {
        if (control) control->get_Markers(Object.Put());
    }
    // It has further members behind the described ones.
    IMavrin2MarkerDetails& operator*() const {
        return *static_cast<IMavrin2MarkerDetails*>(Object.Get());
    }
    IMavrin2MarkerDetails* operator->() const { return &**this; }

    void Insert(LONG position, LONG length = 0, const char* label = "") {
        EXPECT_EQ(Object->Insert(position, length, Bstr(std::string_view(label)).Get(), nullptr),
                  S_OK);
    }
    template <class Interface, class Value>
    Value Get(HRESULT (STDMETHODCALLTYPE Interface::*getter)(Value*)) {
        Value value{};
        EXPECT_EQ((**this.*getter)(&value), S_OK);
        return value;
    }
    LONG Count() { return Get(&IMavrin2Markers::get_Count); }
    LONG Num() { return Get(&IMavrin2Markers::get_Num); }
    std::string Text(HRESULT (STDMETHODCALLTYPE IMavrin2Markers::*getter)(BSTR*)) {
        Bstr text;
        (Object.Get()->*getter)(text.Put());
        return text.Utf8();
    }
    // "10+0 a, 5+7 b", with a star before the current one.
    std::string All() {
        std::string text;
        const LONG current = Num();
        for (LONG i = 1; i <= Count(); ++i) {
            Object->put_Num(i);
            text += (i > 1 ? ", " : "") + std::string(i == current ? "*" : "") +
                    std::to_string(Get(&IMavrin2Markers::get_Position)) + "+" +
                    std::to_string(Get(&IMavrin2Markers::get_Length)) + " " +
                    Text(&IMavrin2Markers::get_Label);
        }
        Object->put_Num(current);
        return text;
    }
};

class MarkersTest : public ControlTest {
protected:
    HostedMarkers Markers{Control.Get()};
};

TEST_F(MarkersTest, AreListedInTheOrderOfInsertionUntilSorted) {
    Markers.Insert(5);
    EXPECT_EQ(Markers.Count(), 0) << "there is no document";
    OpenThousand();
    EXPECT_EQ(Markers->put_Num(1), S_OK);
    Markers.Insert(30, 5, "long name of it");
    Markers.Insert(10, 0, "b");
    Markers.Insert(-7, -1, "c");
    Markers.Insert(10, 0, "d");
    EXPECT_EQ(Markers.All(), "*30+5 long name of it, 10+0 b, -7+-1 c, 10+0 d");
    Markers->put_Num(99);
    Markers->put_Position(4000);
    Markers->put_Length(3);
    EXPECT_EQ(Markers.All(), "30+5 long name of it, 10+0 b, -7+-1 c, *4000+3 d");
    Markers->put_Num(-3);
    Markers->Sort();
    EXPECT_EQ(Markers.All(), "*-7+-1 c, 10+0 b, 30+5 long name of it, 4000+3 d");
    Markers->Delete();
    EXPECT_EQ(Markers.All(), "*10+0 b, 30+5 long name of it, 4000+3 d");
    Markers->put_Num(3);
    Markers->Delete();
    EXPECT_EQ(Markers.All(), "10+0 b, *30+5 long name of it");
    for (int i = 0; i < 3; ++i)
        Markers->Delete();
    EXPECT_EQ(Markers.Count(), 0);
    EXPECT_EQ(Markers.Num(), 0);
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(MarkersTest, HaveTextsColoursNumbersAndAPicture) {
    ComPtr<interfaces::IMavrin2Colors> colors;
    Control->get_Colors(colors.Put());
    OpenThousand();
    Markers.Insert(1);
    colors->put_CueMarker(0x123456);
    Markers.Insert(2);
    Markers->put_Note(Bstr(std::string_view("n\xc3\xb6te")).Get());
    Markers->put_Text(Bstr(std::string_view("text")).Get());
    Markers->put_CutPoint(-4);
    Markers->put_Play(-1);
    std::uint32_t pixels[100];
    for (std::uint32_t i = 0; i < 100; ++i)
        pixels[i] = i * 0x010203;
    ComPtr<IPictureDisp> picture;
    ASSERT_EQ(platform::NewPicture(pixels, 10, picture.Put()), S_OK);
    Markers->put_Picture(picture.Get());

    Delete(500, 600);
    Markers->put_Text(nullptr);
    Control->Undo();
    EXPECT_EQ(Markers.Get(&IMavrin2Markers::get_Color), 0x7D7DFFu);
    EXPECT_EQ(Markers.Text(&IMavrin2Markers::get_Note), "n\xc3\xb6te");
    EXPECT_EQ(Markers.Text(&IMavrin2Markers::get_Text), "text") << "another version has lost it";
    EXPECT_EQ(Markers.Get(&IMavrin2MarkerDetails::get_CutPoint), -4);
    EXPECT_EQ(Markers.Get(&IMavrin2MarkerDetails::get_Play), 0);
    std::uint32_t read[100];
    Markers->get_Picture(picture.Put());
    ASSERT_EQ(platform::DrawPicture(picture.Get(), read, 10), S_OK);
    EXPECT_TRUE(std::ranges::equal(read, pixels));
    Markers->put_Num(2);
    EXPECT_EQ(Markers.Get(&IMavrin2Markers::get_Color), 0x123456u);
    Markers->get_Picture(picture.Put());
    ASSERT_EQ(platform::DrawPicture(picture.Get(), read, 10), S_OK);
    EXPECT_EQ(std::ranges::count(read, 0u), 100) << "black";
}

TEST_F(MarkersTest, AreGoneToByNumber) {
    OpenSound(Ramp(2000), 2);
    Position->GoToMarker(1);
    EXPECT_EQ(Events->Take(), "");
    Markers.Insert(10, 20);
    Markers.Insert(990, 50);
    Markers.Insert(7);
    for (const auto& [number, positions] :
         {std::pair{0, "selected 10..30"}, std::pair{2, "selected 990..1000"},
          std::pair{99, "select 7..7"}}) {
        Position->GoToMarker(number);
        EXPECT_EQ(Positions(), std::string(positions) + " view 0..1000 of 1000");
        EXPECT_EQ(Events->Take(), "position");
    }
}

TEST_F(MarkersTest, AllMoveBeforeTheFirstEventOfAnEdit) {
    OpenThousand();
    for (const LONG position : {50, 950, 960})
        Markers.Insert(position);
    std::string during;
    Select(100, 200);
    Events->InEvent(10, [&] { during = Markers.All(); });
    Control->DeleteSelect();
    EXPECT_EQ(during, "*50+0 , 850+0 , 860+0 ");
    EXPECT_EQ(Events->Take(), "10% 30% 40% 50% 60% 70% 80% 90% 100% marker(2) marker(3) 100% end")
        << "the first event of a marker is the tenth";
}

TEST_F(MarkersTest, KeepTheirPlaceWhenTheRateChanges) {
    OpenThousand();
    Markers.Insert(101, 7);
    Markers.Insert(0);
    const auto convert = [&](LONG rate, LONG channels) {
        Events->Take();
        Control->ConvertSampleType(interfaces::FrequencyConstants{rate},
                                   interfaces::ChannelsConstants{channels});
        return Markers.All();
    };
    EXPECT_EQ(convert(1000, 2), "*101+7 , 0+0 ");
    EXPECT_EQ(Events->Take().find("marker"), std::string::npos);
    EXPECT_EQ(convert(2000, 2), "*202+14 , 0+0 ");
    EXPECT_NE(Events->Take().find("marker(1) end"), std::string::npos);
    EXPECT_EQ(convert(500, 1), "*51+4 , 0+0 ");
    Control->BeginOperations();
    Delete(0, 1);
    Delete(0, 1);
    Control->EndOperations();
    EXPECT_EQ(Markers.All(), "*49+4 , 0+0 ");
    Control->Undo();
    EXPECT_EQ(Markers.All(), "*51+4 , 0+0 ");
}

// The first sample of each frame tells where the frame comes from.
TEST_F(MarkersTest, StayOnTheirSoundThroughRandomEdits) {
    constexpr std::int16_t kFrames = 3000;
    for (const std::size_t channels : {1, 2}) {
        std::mt19937 random(static_cast<unsigned>(channels));
        const auto below = [&](LONG limit) {
            return static_cast<LONG>(random() % static_cast<unsigned>(std::max(limit, LONG{1})));
        };
        Samples sound(kFrames * channels);
        for (std::size_t i = 0; i < sound.size(); ++i)
            sound[i] = static_cast<std::int16_t>(i / channels);
        OpenSound(sound, static_cast<LONG>(channels));
        std::vector<std::int16_t> origins;  // of the markers
        for (int i = 0; i < 40; ++i) {
            origins.push_back(static_cast<std::int16_t>(below(kFrames)));
            Markers.Insert(origins.back());
        }
        SetClip(1000, static_cast<std::uint16_t>(channels), Samples(channels * 25, -1));
        ComPtr<interfaces::IMavrin2Transform> transform;
        Control->get_Transform(transform.Put());
        transform->put_SmoothEnabled(0);
        std::size_t checked = 0;
        for (int step = 0; step < 150; ++step) {
            const Samples samples = DocumentSamples();
            const auto total = static_cast<LONG>(samples.size() / channels);
            const LONG first = below(total);
            Select(first, first + below(40));
            if (below(2)) Position->put_Selected(0);
            switch (below(6)) {
                case 0:
                    Control->DeleteSelect();
                    break;
                case 1:
                    PutAudioArray(Samples(channels * static_cast<std::size_t>(1 + below(60)), -1));
                    break;
                case 2:
                    Control->Paste();
                    break;
                case 3:
                    Control->Mix(100, 0);
                    break;
                case 4:
                    Control->Undo();
                    break;
                default:
                    Control->Redo();
            }
            const Samples now = DocumentSamples();
            for (LONG i = 0; i < Markers.Count(); ++i) {
                const auto found = std::ranges::find(now, origins[static_cast<std::size_t>(i)]);
                if (found == now.end()) continue;  // the frame is gone
                Markers->put_Num(i + 1);
                ASSERT_EQ(Markers.Get(&IMavrin2Markers::get_Position),
                          (found - now.begin()) / static_cast<LONG>(channels))
                    << "marker " << i + 1 << " after step " << step;
                ++checked;
            }
        }
        EXPECT_GT(checked, 1000u);
    }
}

TEST(MarkerReentrancy, LetsAHostDoAnythingInEveryEvent) {
    struct Act {
        const char* Name;
        void (*Do)(ControlWorld& world);
    };
    constexpr Act kActs[] = {
        {"Delete",
         [](ControlWorld& w) {
             HostedMarkers markers(w.Control.Get());
             while (markers.Count() > 0)
                 markers->Delete();
         }},
        {"Sort", [](ControlWorld& w) { HostedMarkers(w.Control.Get())->Sort(); }},
        {"Edit", [](ControlWorld& w) { w.Control->Stop(), w.Control->DeleteSelect(); }},
        {"Undo", [](ControlWorld& w) { w.Control->Stop(), w.Control->Undo(); }},
        {"Close", [](ControlWorld& w) { w.Control->Close(); }},
        {"Open", [](ControlWorld& w) { w.Open("/other.wav"); }},
        {"Release", [](ControlWorld& w) { w.End(); }},
    };
    for (const bool converts : {false, true})
        for (const Act& act : kActs)
            for (int event = 1, more = 1; more; ++event) {
                SCOPED_TRACE(std::string(act.Name) + " in event " + std::to_string(event));
                ControlWorld world;
                world.Start();
                world.Ontiva->Files["/other.wav"].Markers = {{1, 0, "x", "", ""}};
                world.OpenSound(Ramp(500));
                HostedMarkers markers(world.Control.Get());
                for (LONG position = 0; position < 500; position += 100)
                    markers.Insert(position, 50);
                world.Select(120, 220);
                world.Events->InEvent(event, [&] { act.Do(world); });
                const ComPtr<interfaces::IMavrin2> control = world.Control;
                if (converts)
                    control->ConvertSampleType(interfaces::FrequencyConstants{2000},
                                               interfaces::ChannelsConstants::MONO);
                else
                    control->DeleteSelect();
                more = world.Events->Acted() ? 1 : 0;
                const LONG count = markers.Count();
                EXPECT_TRUE(count == 0 || count == 1 || count == 5) << count;
                const std::string log = world.Events->Take();
                if (more && act.Name == std::string("Close")) {
                    EXPECT_EQ(std::ranges::count(log, ' ') + 1, event) << log;
                }
            }
}

TEST_F(MarkersTest, ComeFromFilesAndGoIntoFilesThatAreComplete) {
    Ontiva->Files["/sound.wav"].Markers = {{700, 100, "range", "note", "Color:255 CutPoint:12"},
                                           {20, 0, "cue", "", "Play:3"}};
    OpenThousand();
    EXPECT_EQ(Markers.All(), "*700+100 range, 20+0 cue");
    EXPECT_EQ(Markers.Text(&IMavrin2Markers::get_Text), "Color:255 CutPoint:12");
    EXPECT_EQ(Markers.Get(&IMavrin2MarkerDetails::get_CutPoint), 12);
    Ontiva->Calls.clear();

    Save();
    const std::vector<Marker> all = {
        {700, 100, "range", "note", "Color:255      CutPoint:12      "},
        {20, 0, "cue", "", "Color:8224255  CutPoint:0       "}};
    EXPECT_EQ(Ontiva->Files["/out.wav"].Markers, all);

    // What touches the selection, in frames of a file of twice the rate.
    Dusoro->Source.Frequency = 2000;
    Select(790, 1000);
    Save("/part.wav", 1);
    EXPECT_EQ(Ontiva->Files["/part.wav"].Markers,
              (std::vector<Marker>{{0, 20, "range", "note", all[0].Text}}));
    Dusoro->Source.Frequency = 1000;

    FileInfo->put_SaveExtraInfoEnabled(0);
    Save("/bare.wav");
    FileInfo->put_SaveExtraInfoEnabled(7);
    Dusoro->FailingClose = true;
    Save("/failed.wav");
    Dusoro->FailingClose = false;
    Dusoro->FailingWrite = 1;
    Save("/failed.wav");
    Save(WorkFile().string());
    EXPECT_EQ(Ontiva->Calls, "WriteInfo(/out.wav)WriteInfo(/part.wav)");
    Dusoro->FailingWrite = 0;
    Ontiva->Calls.clear();
    Events->InEvent(1, [&] { Control->Stop(); });
    Save("/stopped.wav");
    EXPECT_EQ(Ontiva->Calls, "WriteInfo(/stopped.wav)");
    Open("/sound.WMA");
    EXPECT_EQ(Ontiva->Calls, "WriteInfo(/stopped.wav)");
    EXPECT_EQ(Markers.Count(), 0);
}

TEST_F(MarkersTest, SurviveACompanionOfAnotherMaker) {
    const std::vector<Marker> one = {{3, 0, "a", "", ""}};
    Ontiva->Files["/sound.wav"].Markers = one;
    for (const LONG claimed : {-1, 2000000000, 5}) {
        SCOPED_TRACE(claimed);
        Ontiva->ClaimedCount = claimed;
        OpenThousand();
        EXPECT_EQ(Markers.Count(), claimed == 5 ? 1 : 0);
        EXPECT_EQ(Save(), S_OK) << "although the list is never empty";
        Ontiva->ClaimedCount.reset();
    }
    Ontiva->GivesTexts = false;
    OpenThousand();
    EXPECT_EQ(Markers.All(), "*3+0 ");
    Bstr title;
    EXPECT_EQ(FileInfo->get_Title(title.Put()), S_OK);
    EXPECT_EQ(title.Utf8(), "");
    Ontiva->GivesTexts = true;
    Ontiva->OnCall = [] { throw std::runtime_error("no"); };
    OpenThousand();
    EXPECT_EQ(Save(), S_OK);
    EXPECT_EQ(LastError(), 0);
    // It runs the host, which closes the document or deletes from it, and then all is as usual.
    for (const bool closes : {true, false}) {
        Ontiva->OnCall = [&, acted = false]() mutable {
            if (std::exchange(acted, true)) return;
            closes ? Control->Close() : Control->Undo();
            if (!closes) NewSound();
        };
        OpenThousand();
        EXPECT_EQ(Markers.Count(), 0);
        Ontiva->OnCall = nullptr;
        OpenThousand();
        EXPECT_EQ(Markers.Count(), 1);
        Delete(0, 1);
        Delete(0, 1);
        Control->Undo();
        EXPECT_EQ(Markers.All(), "*2+0 a") << "no batch was left open";
    }
}

}  // namespace
}  // namespace mavrin2::tests
