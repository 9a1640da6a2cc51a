#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2Position;
using Put = HRESULT (STDMETHODCALLTYPE IMavrin2Position::*)(LONG);

constexpr Put kStartSelect = &IMavrin2Position::put_StartSelect;
constexpr Put kEndSelect = &IMavrin2Position::put_EndSelect;
constexpr Put kCurrent = &IMavrin2Position::put_CurrentPosition;
constexpr Put kStartView = &IMavrin2Position::put_StartView;
constexpr Put kEndView = &IMavrin2Position::put_EndView;

class PositionTest : public ControlTest {
protected:
    LONG Converted(HRESULT (STDMETHODCALLTYPE IMavrin2Position::*convert)(LONG, LONG*), LONG from) {
        LONG to = 0;
        EXPECT_EQ((Position.Get()->*convert)(from, &to), S_OK);
        return to;
    }
};

TEST_F(PositionTest, FollowsTheTableOfPuts) {
    struct {
        VARIANT_BOOL Selected;
        LONG Start, End;  // the selection before
        LONG Value;
        Put Member;
        const char* After;
    } const cases[] = {
        {0, 5, 5, -5, kStartSelect, "select 0..0"},
        {0, 5, 5, 300, kStartSelect, "select 300..300"},
        {-1, 100, 200, 50, kStartSelect, "selected 50..200"},
        {1, 100, 200, 200, kStartSelect, "selected 200..200"},
        {1, 100, 200, 250, kStartSelect, "selected 250..250"},
        {0, 5, 5, 300, kEndSelect, "select 300..300"},
        {0, 5, 5, 5000, kEndSelect, "select 1000..1000"},
        {1, 100, 200, 50, kEndSelect, "selected 50..100"},
        {1, 100, 200, 100, kEndSelect, "selected 100..100"},
        {1, 100, 200, 5000, kEndSelect, "selected 100..1000"},
        {0, 5, 5, 300, kCurrent, "select 300..300"},
        {7, 100, 200, 400, kCurrent, "selected 200..400"},
        {1, 100, 200, 200, kCurrent, "selected 200..200"},
        {1, 100, 200, 150, kCurrent, "selected 150..200"},
        // Four bytes a frame, counted in 32 bits.
        {0, 5, 5, 0x40000001, kStartSelect, "select 1..1"},
        {0, 5, 5, 0x20000000, kStartSelect, "select 0..0"},
    };
    OpenSound(Ramp(2000), 2);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.After);
        Select(c.Start, c.End);
        Position->put_Selected(c.Selected);
        Events->Take();
        EXPECT_EQ((Position.Get()->*c.Member)(c.Value), S_OK);
        EXPECT_EQ(Positions(), std::string(c.After) + " view 0..1000 of 1000");
        EXPECT_EQ(Events->Take(), "position");
        EXPECT_EQ(Got(*Position, &IMavrin2Position::get_Selected), c.Selected) << "as given";
    }
}

TEST_F(PositionTest, GivesAChosenViewALevelOfItsOwn) {
    struct {
        Put Member;
        const char* View;
        LONG Value;
        bool Heard;
    } const cases[] = {
        {kStartView, "0..1000", 0, false},     {kStartView, "100..1000", 100, true},
        {kStartView, "100..1000", 100, false}, {kEndView, "100..300", 300, true},
        {kEndView, "100..300", 300, false},    {kStartView, "300..500", 500, true},
        {kEndView, "50..300", 50, true},       {kEndView, "50..51", 50, true},
        {kStartView, "0..51", -7, true},       {kEndView, "0..1000", 7000, true},
    };
    OpenSound(Ramp(2000), 2);
    Select(100, 200);
    for (const auto& c : cases) {
        EXPECT_EQ((Position.Get()->*c.Member)(c.Value), S_OK);
        EXPECT_EQ(Positions(), "selected 100..200 view " + std::string(c.View) + " of 1000");
        EXPECT_EQ(Events->Take(), c.Heard ? "position" : "");
    }
    const editor::DocumentState& state = *History().Current();
    EXPECT_EQ(state.ZoomIndex, 1);
    EXPECT_EQ(state.Zoom[0].EndView.Count(), 4000) << "the whole document's level stays";
    EXPECT_EQ(state.Zoom[0].StartSelect.Count(), 400);
}

TEST_F(PositionTest, IsNothingWithoutADocument) {
    for (const Put member : {kStartSelect, kEndSelect, kCurrent, kStartView, kEndView})
        EXPECT_EQ((Position.Get()->*member)(5), S_OK);
    EXPECT_EQ(Position->put_Selected(1), S_OK);
    EXPECT_EQ(Positions(), "select 0..0 view 0..0 of 0");
    EXPECT_EQ(Got(*Position, &IMavrin2Position::get_CurrentPosition), 0);
    EXPECT_EQ(Events->Take(), "");
    EXPECT_EQ(Position->get_CurrentPosition(nullptr), E_POINTER);
}

TEST_F(PositionTest, ConvertsAtTheRateOfTheDocument) {
    const auto toSamples = &IMavrin2Position::SecToSamples;
    const auto toSeconds = &IMavrin2Position::SamplesToSec;
    EXPECT_EQ(Converted(toSamples, 1000), 8000);
    EXPECT_EQ(Converted(toSeconds, 4000), 500);
    EXPECT_EQ(Converted(toSeconds, 2000000), 250000);
    EXPECT_EQ(Converted(toSamples, 2000000000), -1) << "no result in 32 bits";
    Dusoro->Source.Frequency = 3;
    OpenSound(Ramp(10));
    EXPECT_EQ(Converted(toSeconds, 1), 333);
    EXPECT_EQ(Converted(toSeconds, 2), 667);
    EXPECT_EQ(Converted(toSamples, 500), 2) << "halves go away from zero";
    EXPECT_EQ(Converted(toSamples, -500), -2);
}

TEST_F(PositionTest, TellsWhereTheCardIsWhileTheControlIsBusyAndStopsIt) {
    OpenThousand();
    Select(500, 600);
    LONG inside = -1;
    Events->InEvent(2, [&] {
        inside = Got(*Position, &IMavrin2Position::get_CurrentPosition);
        Position->put_CurrentPosition(550);
    });
    Control->DeleteSelect();
    EXPECT_EQ(inside, 0);
    EXPECT_EQ(Events->Take(), "10% 20% position end");
    EXPECT_EQ(Positions(), "selected 550..600 view 0..1000 of 1000");
}

}  // namespace
}  // namespace mavrin2::tests
