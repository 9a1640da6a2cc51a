// What the mouse does in the control's window: the messages that come in, the events and the
// selection that come of them, and the pointer that is shown.

#include <random>

#include "tests/control/control_test.h"
#include "tests/control/linux/window_world.h"
#include "tests/support/wanted_count.h"

namespace mavrin2::tests {
namespace {

using interfaces::MousePointerConstants;
using platform::MouseAction;
using platform::MouseButton;
using platform::PointerShape;

// A window in which the sound has 700 columns, from x = 2 to 702, between y = 10 and 295; the bands
// along its edges are 4 pixels. The document has ten frames a column.
class MouseTest : public testing::Test, protected WindowWorld {
protected:
    MouseTest() {
        Start();
        for (const auto getter :
             {&interfaces::IMavrin2::get_ScaleX, &interfaces::IMavrin2::get_ScaleY}) {
            automation::ComPtr<interfaces::IMavrin2Scale> scale;
            ((*Control).*getter)(scale.Put());
            scale->put_Visible(0);
        }
        OpenWindow(705, 300);
        OpenSound(Ramp(7000));
        Events->Take();
    }

    std::string Send(MouseAction action, int x, int y, MouseButton button = MouseButton::Left) {
        platform::MouseEvent event;
        event.Action = action;
        event.X = x;
        event.Y = y;
        if (action == MouseAction::Down || action == MouseAction::Up ||
            action == MouseAction::DoubleClick)
            event.Button = button;
        const int mask = static_cast<int>(button);
        held_ = action == MouseAction::Down ? held_ | mask
                                            : (action == MouseAction::Up ? held_ & ~mask : held_);
        event.Held = held_;
        Container.Window->Send(event);
        return Events->Take();
    }
    std::string Press(int x, int y) { return Send(MouseAction::Down, x, y); }
    std::string Move(int x, int y) { return Send(MouseAction::Move, x, y); }
    std::string Release(int x, int y) { return Send(MouseAction::Up, x, y); }
    std::string RightPress(int x, int y) {
        const std::string events = Send(MouseAction::Down, x, y, MouseButton::Right);
        Send(MouseAction::Up, x, y, MouseButton::Right);
        return events;
    }
    std::string Turn(int by) {
        platform::MouseEvent event;
        event.Action = MouseAction::Wheel;
        event.X = 300;
        event.Y = 100;
        event.Turn = by;
        Container.Window->Send(event);
        return Events->Take();
    }
    PointerShape Pointer() const { return Container.Window->Pointer(); }

    void MakeStereo() {
        Dusoro->Source.Channels = 2;
        OpenSound(Ramp(14000), 2);
        Events->Take();
    }

private:
    int held_ = 0;
};

TEST_F(MouseTest, SelectsFromWhereTheButtonWasPressed) {
    EXPECT_EQ(Press(102, 150), "down(1,0,102,150)");
    EXPECT_EQ(Positions(), "select 1000..1000 view 0..7000 of 7000");
    EXPECT_EQ(Move(106, 150), "move(1,0,106,150)");  // fewer than five columns
    EXPECT_EQ(Move(302, 400), "position move(1,0,302,400)");
    EXPECT_EQ(Positions(), "selected 1000..3000 view 0..7000 of 7000");
    EXPECT_EQ(Move(52, 150), "position move(1,0,52,150)");
    EXPECT_EQ(Positions(), "selected 500..1000 view 0..7000 of 7000");
    EXPECT_EQ(Move(-900, 150), "position move(1,0,-900,150)");
    EXPECT_EQ(Move(2000, 150), "position move(1,0,2000,150)");
    EXPECT_EQ(Positions(), "selected 1000..7000 view 0..7000 of 7000");
    EXPECT_EQ(Release(2000, 150), "up(1,0,2000,150)");
    EXPECT_EQ(Move(400, 150), "move(0,0,400,150)");
    EXPECT_EQ(Positions(), "selected 1000..7000 view 0..7000 of 7000");

    EXPECT_EQ(Press(402, 150), "down(1,0,402,150)");
    EXPECT_EQ(Release(403, 150), "position up(1,0,403,150)");
    EXPECT_EQ(Positions(), "select 4000..4000 view 0..7000 of 7000");
    EXPECT_EQ(RightPress(602, 150), "position down(2,0,602,150)");
    EXPECT_EQ(Positions(), "selected 4000..6001 view 0..7000 of 7000");
    EXPECT_EQ(RightPress(102, 150), "position down(2,0,102,150)");
    EXPECT_EQ(Positions(), "selected 1000..6001 view 0..7000 of 7000");
}

TEST_F(MouseTest, DragsTheEdgesOfTheSelection) {
    Select(2000, 4000);
    Events->Take();
    EXPECT_EQ(Press(205, 12), "down(1,0,205,12)");
    EXPECT_EQ(Move(204, 12), "move(1,0,204,12)");  // fewer than three columns
    EXPECT_EQ(Move(302, 12), "position move(1,0,302,12)");
    EXPECT_EQ(Positions(), "selected 3000..4000 view 0..7000 of 7000");
    EXPECT_EQ(Move(502, 12), "position move(1,0,502,12)");  // past the other one
    EXPECT_EQ(Positions(), "selected 4000..5000 view 0..7000 of 7000");
    Release(502, 12);
    EXPECT_EQ(Press(500, 293), "down(1,0,500,293)");
    EXPECT_EQ(Move(602, 293), "position move(1,0,602,293)");
    EXPECT_EQ(Positions(), "selected 4000..6001 view 0..7000 of 7000");
    Release(602, 293);
    EXPECT_EQ(Press(300, 12), "down(1,0,300,12)");  // no edge there
    EXPECT_EQ(Move(350, 12), "move(1,0,350,12)");
    Release(350, 12);
    EXPECT_EQ(Positions(), "selected 4000..6001 view 0..7000 of 7000");
}

TEST_F(MouseTest, ZoomsWithTheWheelAndScrolls) {
    Position->put_StartSelect(4000);
    Events->Take();
    EXPECT_EQ(Turn(120), "position");
    EXPECT_EQ(Positions(), "select 4000..4000 view 3125..4875 of 7000");
    // The thumb is at 314, 175 pixels wide; each pixel is ten frames.
    EXPECT_EQ(Press(400, 5), "down(1,0,400,5)");
    EXPECT_EQ(Pointer(), PointerShape::Grab);
    EXPECT_EQ(Move(410, 5), "position move(1,0,410,5)");
    EXPECT_EQ(Positions(), "select 4000..4000 view 3225..4975 of 7000");
    EXPECT_EQ(Move(10000, 5), "position move(1,0,10000,5)");
    EXPECT_EQ(Positions(), "select 4000..4000 view 5249..6999 of 7000");
    EXPECT_EQ(Release(10000, 5), "up(1,0,10000,5)");
    ResizeWindow(5, 300);  // without a column
    Paint();
    Press(2, 5);
    Move(3, 5);
    ResizeWindow(705, 300);
    Paint();
    Release(600, 5);
    EXPECT_EQ(Positions(), "select 4000..4000 view 5249..6999 of 7000");
    Events->Take();

    automation::ComPtr<interfaces::IMavrin2Scale> scale;
    Control->get_ScaleX(scale.Put());
    scale->put_Visible(1);
    Events->Take();
    Press(300, 299);
    EXPECT_EQ(Move(400, 299), "position move(1,0,400,299)");  // the sound follows: 250 frames
    EXPECT_EQ(Positions(), "select 4000..4000 view 4999..6749 of 7000");
    Release(400, 299);
    EXPECT_EQ(RightPress(300, 299), "scale x down(2,0,300,299)");

    EXPECT_EQ(Turn(-120), "position");
    EXPECT_EQ(Turn(-120), "");
    EXPECT_EQ(Positions(), "select 4000..4000 view 0..7000 of 7000");
    Control->Zoom(10, 17);  // an eighth of it is less than a frame
    Events->Take();
    EXPECT_EQ(Turn(120), "");
}

TEST_F(MouseTest, ChoosesAChannel) {
    MakeStereo();
    automation::ComPtr<interfaces::IMavrin2Channel> channels;
    Control->get_Channels(channels.Put());
    const auto edited = [&] {
        std::string text;
        for (const SHORT channel : {1, 2}) {
            channels->put_Num(channel);
            if (Got(*channels, &interfaces::IMavrin2Channel::get_Operation) != 0)
                text += std::to_string(channel);
        }
        return text;
    };
    const auto press = [&](int y) {
        Press(102, y);
        Release(102, y);
        return edited();
    };
    Move(102, 20);
    EXPECT_EQ(Pointer(), PointerShape::LeftChannel);
    Move(102, 150);
    EXPECT_EQ(Pointer(), PointerShape::Arrow);
    EXPECT_EQ(press(150), "12");
    EXPECT_EQ(press(20), "1");
    EXPECT_EQ(press(100), "1");
    Move(102, 200);
    EXPECT_EQ(Pointer(), PointerShape::RightChannel);
    EXPECT_EQ(press(200), "12");
    EXPECT_EQ(press(280), "2");
    // While selecting, only the halves bring the other channel back.
    Press(102, 280);
    Move(302, 20);
    EXPECT_EQ(edited(), "12");
    Move(402, 20);
    EXPECT_EQ(edited(), "1");
    Release(402, 20);
}

TEST_F(MouseTest, MakesMovesAndDeletesMarkers) {
    automation::ComPtr<interfaces::IMavrin2Markers> markers;
    Control->get_Markers(markers.Put());
    const auto marker = [&](LONG number) {
        markers->put_Num(number);
        using Markers = interfaces::IMavrin2Markers;
        return std::to_string(Got(*markers, &Markers::get_Position)) + "+" +
               std::to_string(Got(*markers, &Markers::get_Length));
    };
    EXPECT_EQ(Send(MouseAction::DoubleClick, 302, 12), "new(1)");
    EXPECT_EQ(marker(1), "3000+0");
    Move(305, 12);
    EXPECT_EQ(Container.Window->Tip(), "Marker 1");
    Move(320, 12);
    EXPECT_EQ(Container.Window->Tip(), "");

    EXPECT_EQ(Press(305, 12), "position click(1) down(1,0,305,12)");
    EXPECT_EQ(Positions(), "select 3000..3000 view 0..7000 of 7000");
    EXPECT_EQ(Move(402, 12), "marker(1) move(1,0,402,12)");
    EXPECT_EQ(Release(402, 12), "marker(1) up(1,0,402,12)");
    EXPECT_EQ(marker(1), "4000+0");

    // A range, from the selection; its end passes its start, and then the start its end.
    Select(1000, 2000);
    Events->Take();
    EXPECT_EQ(Send(MouseAction::DoubleClick, 602, 293), "new(2)");
    EXPECT_EQ(marker(2), "1000+1000");
    Position->put_Selected(0);
    Position->put_StartSelect(6000);
    Events->Take();
    EXPECT_EQ(Press(202, 12), "position click(2) down(1,0,202,12)");
    EXPECT_EQ(Move(52, 12), "marker(2) move(1,0,52,12)");
    EXPECT_EQ(marker(2), "500+500");
    EXPECT_EQ(Move(302, 12), "marker(2) move(1,0,302,12)");
    EXPECT_EQ(marker(2), "1000+2000");
    EXPECT_EQ(Positions(), "selected 1000..3000 view 0..7000 of 7000");
    Release(302, 12);
    EXPECT_EQ(RightPress(402, 12), "position click(1) down(2,0,402,12)");

    auto& details = static_cast<interfaces::IMavrin2MarkerDetails&>(*markers);
    markers->put_Num(2);
    details.put_CutPoint(1000);
    EXPECT_EQ(Press(202, 12), "position click(2) down(1,0,202,12)");
    Move(152, 12);
    LONG cut = 0;
    details.get_CutPoint(&cut);
    EXPECT_EQ(cut, 500);
    Release(152, 12);

    // A host that deletes it in the click drags nothing.
    Events->InEvent(2, [&] { markers->Delete(); });
    EXPECT_EQ(Press(152, 12), "position click(2) down(1,0,152,12)");
    EXPECT_EQ(Move(252, 12), "move(1,0,252,12)");
    EXPECT_EQ(Release(252, 12), "up(1,0,252,12)");
    EXPECT_EQ(marker(1), "4000+0");

    Control->put_MarkerMouseEventEnabled(0);
    EXPECT_EQ(Send(MouseAction::DoubleClick, 402, 12), "");
    EXPECT_EQ(Got(*markers, &interfaces::IMavrin2Markers::get_Count), 1);
    Control->put_MarkerMouseEventEnabled(1);
    EXPECT_EQ(Send(MouseAction::DoubleClick, 402, 12), "");
    EXPECT_EQ(Got(*markers, &interfaces::IMavrin2Markers::get_Count), 0);
}

TEST_F(MouseTest, PlaysOnFromThePlacePressed) {
    using interfaces::PlayTypeConstants;
    const auto current = [&] {
        return Got(*Position, &interfaces::IMavrin2Position::get_CurrentPosition);
    };
    Control->Play(PlayTypeConstants::PLAYTOEND);
    Velto->PlayTo(100);
    Events->Take();
    Velto->Take();
    EXPECT_EQ(Press(302, 150), "down(1,0,302,150)");
    EXPECT_EQ(Velto->Take(), "Stop, Stop, Format 1000 1, Prepare, Start, Queue 500, Queue 500");
    EXPECT_EQ(current(), 3010);
    Move(402, 150);
    Velto->FinishBlock();
    EXPECT_EQ(Release(402, 150), "up(1,0,402,150)");
    EXPECT_EQ(Status(), 1);

    // Paused, it stops.
    Control->Pause();
    EXPECT_EQ(Press(102, 150), "meter(0,0) endplay down(1,0,102,150)");
    Release(102, 150);
    EXPECT_EQ(Status(), 0);

    // The selection's end comes before the place that plays.
    Select(1000, 5000);
    Control->Play(PlayTypeConstants::NORMALPLAY);
    Velto->PlayTo(2000);
    Press(500, 293);
    Move(402, 293);
    Events->Take();
    EXPECT_EQ(Release(402, 293), "up(1,0,402,293)") << "it is at 3010";
    Press(400, 293);
    Move(202, 293);
    Events->Take();
    EXPECT_EQ(Release(202, 293), "meter(0,0) endplay up(1,0,202,293)");

    // A recording goes on.
    Control->Record({});
    Events->Take();
    Press(302, 150);
    Release(302, 150);
    EXPECT_EQ(Status(), 2);
    Control->Stop();
}

TEST_F(MouseTest, ShowsOnlyACenterLineWhenTheSystemIsTooSlow) {
    for (int i = 0; i < 500; ++i)
        Rimbal->Recent.push_back(static_cast<std::int16_t>(i % 2 == 0 ? 20000 : -20000));
    const auto recorded = [&](SHORT type) {
        Control->put_RecordVisualizationType(type);
        Control->Record({});
        Rimbal->RecordTo(500);
        auto pixels = Paint();
        Control->Stop();
        return pixels;
    };
    const auto line = recorded(3);
    const std::uint32_t color = line[152 * 705 + 300];
    // With the whole overview bar.
    EXPECT_LT(std::ranges::count(line, color), 700 * 8);
    EXPECT_GT(std::ranges::count(recorded(2), color), 700 * 20) << "the sound that arrives";
}

TEST_F(MouseTest, OnlyReportsWhenItMayNotEdit) {
    const auto unchanged = [&] { return Positions() == "select 0..0 view 0..7000 of 7000"; };
    Control->put_MouseEventsEnabled(0);
    EXPECT_EQ(Press(102, 150), "down(1,0,102,150)");
    EXPECT_EQ(Move(302, 150), "move(1,0,302,150)");
    EXPECT_EQ(Release(302, 150), "up(1,0,302,150)");
    EXPECT_EQ(Send(MouseAction::DoubleClick, 302, 150), "double");
    EXPECT_EQ(Turn(120), "");
    EXPECT_TRUE(unchanged());
    Control->put_MouseEventsEnabled(1);
    EXPECT_EQ(Send(MouseAction::DoubleClick, 302, 150), "double");
    EXPECT_EQ(Send(MouseAction::DoubleClick, 302, 5), "");  // in the overview bar
    Release(302, 5);

    // An operation is running.
    Events->InEvent(1, [&] {
        Press(102, 150);
        Move(302, 150);
        Release(302, 150);
    });
    Save();
    EXPECT_TRUE(unchanged());

    Control->Close();
    Events->Take();
    EXPECT_EQ(Press(102, 150), "down(1,0,102,150)");
    EXPECT_EQ(Send(MouseAction::DoubleClick, 302, 150), "");
}

TEST_F(MouseTest, EndsWhatADocumentThatGoesHadBegun) {
    Press(102, 150);
    Events->InEvent(1, [&] { Control->Close(); });
    Move(302, 150);
    Events->Take();
    OpenSound(Ramp(7000));
    Events->Take();
    EXPECT_EQ(Move(402, 150), "move(1,0,402,150)");
    EXPECT_EQ(Positions(), "select 0..0 view 0..7000 of 7000");
    Release(402, 150);

    Press(102, 150);
    Move(302, 150);
    Events->Take();
    Container.Window->TakeCapture();  // as a release
    EXPECT_EQ(Events->Take(), "up(1,0,302,150)");
    EXPECT_EQ(Move(402, 150), "move(1,0,402,150)");
    EXPECT_EQ(Positions(), "selected 1000..3000 view 0..7000 of 7000");
}

// A cursor file of one image: `bits` a pixel, 2 by 2, hot spot at (1, 0). Only its upper left pixel
// is not transparent.
std::vector<std::byte> CursorFile(std::uint8_t bits) {
    const std::uint8_t colors = bits <= 8 ? 2 : 0;
    std::vector<std::uint8_t> bytes = {0, 0, 2, 0,  1, 0, 2, 2,  0, 0, 1,
                                       0, 0, 0, 99, 0, 0, 0, 22, 0, 0, 0};
    const std::vector<std::uint8_t> header = {40, 0, 0, 0,    2, 0, 0, 0, 4, 0, 0,
                                              0,  1, 0, bits, 0, 0, 0, 0, 0, 0, 0,
                                              0,  0, 0, 0,    0, 0, 0, 0, 0, 0, colors};
    bytes.insert(bytes.end(), header.begin(), header.end());
    bytes.resize(22 + 40);
    if (colors > 0) bytes.insert(bytes.end(), {0, 0, 0, 0, 0x33, 0x22, 0x11, 0});
    const std::size_t stride = (2U * bits + 31) / 32 * 4;
    std::vector<std::uint8_t> rows(2 * stride);
    if (bits <= 8) {
        rows[stride] = static_cast<std::uint8_t>(1 << (8 - bits));
    } else {
        const std::uint8_t pixel[] = {0x33, 0x22, 0x11, 0xFF};
        std::copy_n(pixel, bits / 8, rows.begin() + static_cast<std::ptrdiff_t>(stride));
    }
    bytes.insert(bytes.end(), rows.begin(), rows.end());
    bytes.insert(bytes.end(), {0xC0, 0, 0, 0, 0x40, 0, 0, 0});
    std::vector<std::byte> file(bytes.size());
    std::ranges::transform(bytes, file.begin(), [](std::uint8_t byte) { return std::byte{byte}; });
    return file;
}

TEST_F(MouseTest, ShowsTheHostsPointers) {
    const auto number = [&](int value) {
        Control->put_MousePointer(MousePointerConstants{value});
        EXPECT_EQ(static_cast<int>(Got(*Control, &interfaces::IMavrin2::get_MousePointer)), value);
        return Pointer();
    };
    Move(1, 1);
    EXPECT_EQ(number(9), PointerShape::SizeWE);
    EXPECT_EQ(number(99), PointerShape::Arrow);  // without a file
    EXPECT_EQ(number(15), PointerShape::OldSize);
    EXPECT_EQ(number(16), PointerShape::Arrow);
    EXPECT_EQ(number(-1), PointerShape::Arrow);

    const auto put = [&](const char* path) {
        Control->put_MouseCustom(automation::Bstr(automation::ToOle(std::string_view(path))).Get());
        automation::Bstr now;
        Control->get_MouseCustom(now.Put());
        return automation::ToUtf8(automation::Bstr::View(now.Get()));
    };
    for (const std::uint8_t bits : {1, 4, 8, 24, 32}) {
        System.Files->AddFile("/hand.cur", CursorFile(bits));
        EXPECT_EQ(put("/hand.cur"), "/hand.cur") << int{bits};
    }
    EXPECT_EQ(number(99), PointerShape::Custom);
    Move(102, 12);
    EXPECT_EQ(Pointer(), PointerShape::MarkerZone);
    Move(1, 1);
    EXPECT_EQ(Pointer(), PointerShape::Custom);

    // Files that are cut off or have false sizes.
    for (const std::uint8_t bits : {1, 32}) {
        const std::vector<std::byte> whole = CursorFile(bits);
        for (std::size_t length = 0; length < whole.size(); ++length) {
            System.Files->AddFile(
                "/broken.cur",
                {whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
            EXPECT_EQ(put("/broken.cur"), "/hand.cur") << length;
        }
        for (std::size_t i = 0; i < whole.size(); ++i) {
            std::vector<std::byte> lying = whole;
            lying[i] = std::byte{0xFF};
            System.Files->AddFile("/hand.cur", lying);
            put("/hand.cur");
        }
    }
}

// Messages in any order and at any place leave a selection and a view inside the document.
TEST_F(MouseTest, StaysInTheDocument) {
    std::mt19937 random(7);
    const auto upto = [&](int count) {
        return std::uniform_int_distribution(0, count - 1)(random);
    };
    MakeStereo();
    for (int i = 0; i < WantedCount("MAVRIN2_MOUSE_MESSAGES", 4000); ++i) {
        if (i % 500 == 0) OpenSound(Ramp(static_cast<std::size_t>(upto(3) * upto(900)) * 2), 2);
        const auto action = static_cast<MouseAction>(upto(4));
        const int x = upto(4) == 0 ? upto(2) * 65535 - 32768 : upto(710);
        const int y = upto(2) == 0 ? upto(20) : upto(300);
        Send(action, x, y, upto(4) == 0 ? MouseButton::Right : MouseButton::Left);
        if (upto(8) == 0) Turn(upto(3) - 1);
        const editor::DocumentState& document = *History().Current();
        const editor::ZoomLevel level = document.Level();
        ASSERT_LE(editor::Bytes(0), level.StartSelect) << i;
        ASSERT_LE(level.StartSelect, level.EndSelect) << i;
        ASSERT_LE(level.EndSelect, document.TotalBytes) << i;
        ASSERT_LE(editor::Bytes(0), level.StartView) << i;
        if (document.TotalBytes == editor::Bytes(0)) continue;
        ASSERT_LE(level.EndView, document.TotalBytes) << i;
    }
}

}  // namespace
}  // namespace mavrin2::tests
