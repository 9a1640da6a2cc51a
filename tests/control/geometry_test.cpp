#include "control/view/geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/fixed_fonts.h"

namespace mavrin2::tests {
namespace {

using view::Bytes;
using view::ColumnMapping;
using view::Geometry;
using view::LayoutInput;
using view::Rectangle;
using view::TypeViewConstants;

// Cells of 6 × 14: a time scale is 23 high, a level scale of five digits 47 wide.
class GeometryTest : public testing::Test {
protected:
    Geometry Laid(std::int32_t width, std::int32_t height) {
        Input.Width = width;
        Input.Height = height;
        Input.ScaleXFont = Input.ScaleYFont = font_.get();
        Geometry geometry;
        geometry.Layout(Input);
        return geometry;
    }

    LayoutInput Input;

private:
    std::shared_ptr<const platform::Font> font_ =
        platform::FixedFonts(6, 14).Load(platform::FontDescription());
};

TEST_F(GeometryTest, DividesTheBounds) {
    const Geometry right = Laid(700, 300);
    EXPECT_EQ(right.OverviewBar, 5);
    EXPECT_EQ(right.LaneMargin, 4);
    EXPECT_EQ(right.TimeScale, 23);
    EXPECT_EQ(right.LevelScale, 47);
    EXPECT_EQ(right.WaveArea, (Rectangle{2, 10, 648, 272}));
    EXPECT_EQ(right.WaveWidth, 646);
    EXPECT_EQ(right.WaveHeight, 262);

    Input.ScaleY.Orientation = 2;
    EXPECT_EQ(Laid(700, 300).WaveArea, (Rectangle{52, 10, 698, 272}));
    Input.ScaleY.Visible = 0;
    EXPECT_EQ(Laid(700, 300).WaveArea, (Rectangle{3, 10, 698, 272}));
    EXPECT_EQ(Laid(700, 300).LevelScale, -2);
    Input.ScaleY.Orientation = 1;
    Input.ScaleX.Visible = 0;
    EXPECT_EQ(Laid(700, 300).WaveArea, (Rectangle{2, 10, 697, 295}));
}

TEST_F(GeometryTest, DropsScalesThatHaveNoRoom) {
    EXPECT_EQ(Laid(150, 300).WaveArea, (Rectangle{2, 9, 147, 272}));
    EXPECT_EQ(Laid(47 + 7 + 179, 300).LevelScale, -2);
    EXPECT_EQ(Laid(47 + 7 + 180, 300).LevelScale, 47);
    EXPECT_EQ(Laid(700, 23 + 5 + 59).TimeScale, 0);
    EXPECT_EQ(Laid(700, 23 + 5 + 60).TimeScale, 23);
}

TEST_F(GeometryTest, HasTheLevelScaleAsWideAsItsLabels) {
    struct {
        TypeViewConstants View;
        std::int16_t Type;
        std::int32_t Width;
    } const cases[] = {{TypeViewConstants::WAVEFORM, 1, 47},
                       {TypeViewConstants::WAVEFORM, 2, 38},
                       {TypeViewConstants::WAVEFORM, 3, 38},
                       {TypeViewConstants::EXPANDED, 1, 47},
                       {TypeViewConstants::SPECTRAL, 3, 56}};
    Input.Frequency = 192000;
    for (const auto& c : cases) {
        Input.TypeView = c.View;
        Input.ScaleY.Type = c.Type;
        EXPECT_EQ(Laid(700, 300).LevelScale, c.Width) << c.Type;
    }
}

TEST_F(GeometryTest, NeverHasLessThanNothing) {
    for (const std::int16_t orientation : {1, 2})
        for (std::int32_t size = 0; size < 40; ++size) {
            Input.ScaleY.Orientation = orientation;
            const Geometry geometry = Laid(size, size);
            EXPECT_GE(geometry.WaveWidth, 0) << size;
            EXPECT_GE(geometry.WaveHeight, 0) << size;
        }
    EXPECT_EQ(Laid(1, 1).Width, 0) << "no room at all";
    EXPECT_EQ(Laid(1, 2).Width, 1);
}

TEST_F(GeometryTest, ShowsTheVisibleRangeInTheOverviewBar) {
    const Geometry geometry = Laid(700, 300);
    const auto thumb = [&](std::int64_t start, std::int64_t end, std::int64_t total) {
        const view::ViewThumb t =
            view::ComputeViewThumb(geometry, Bytes(start), Bytes(end), Bytes(total));
        return std::pair(t.Left, t.Width);
    };
    EXPECT_EQ(thumb(0, 0, 0), std::pair(2, 646)) << "no document";
    EXPECT_EQ(thumb(0, 1000, 1000), std::pair(2, 646));
    EXPECT_EQ(thumb(500, 750, 1000), std::pair(2 + 323, 161));
    EXPECT_EQ(thumb(999, 1000, 1000), std::pair(2 + 645, 3)) << "to be seen and caught";
    EXPECT_EQ(thumb(0x7FFFFFF0, 0x7FFFFFFF, 0x7FFFFFFF), std::pair(2 + 645, 3));
}

TEST(BusyWaveTest, HasTenHumpsOfEighty) {
    view::BusyWave wave;
    wave.Fit(646);
    EXPECT_EQ(wave.At(0), 0);
    EXPECT_EQ(wave.At(16), 79) << "a quarter of a period";
    int humps = 0;
    for (std::int32_t column = 1; column < 646; ++column) {
        EXPECT_LE(wave.At(column), 80);
        EXPECT_GE(wave.At(column), 0);
        if (wave.At(column) >= 40 && wave.At(column - 1) < 40) ++humps;
    }
    EXPECT_EQ(humps, 20) << "both halves of each period";
    wave.Fit(100000);
    wave.Fit(0);
}

TEST(ColumnMappingTest, GoesFromBytesToColumnsAndBack) {
    const ColumnMapping mapping{Bytes(4000), Bytes(8000), 100, Bytes(4)};
    struct {
        std::int64_t Position;
        std::int32_t Column;
    } const columns[] = {{0, 0},     {4000, 0},   {4019, 0},   {4020, 1},
                         {6000, 50}, {7999, 100}, {8000, 100}, {90000, 100}};
    for (const auto& c : columns)
        EXPECT_EQ(mapping.ByteToColumn(Bytes(c.Position)), c.Column) << c.Position;
    struct {
        std::int32_t Column;
        std::int64_t Position;
    } const positions[] = {{0, 4000}, {1, 4040}, {50, 6000}, {99, 7964}, {100, 8000}};
    for (const auto& c : positions)
        EXPECT_EQ(mapping.ColumnToByte(c.Column), Bytes(c.Position)) << c.Column;
    EXPECT_EQ((ColumnMapping{Bytes(8), Bytes(8), 100, Bytes(4)}.ByteToColumn(Bytes(8))), 0);
}

class LanesTest : public GeometryTest {
protected:
    // "channel top-bottom" of each lane.
    std::string LanesOf(std::int32_t channels) {
        std::string text;
        Switches.Recount(channels);
        for (const view::Lane& lane : view::Lanes(Laid(700, 300), Switches, channels))
            text += std::to_string(lane.Channel) + " " + std::to_string(lane.Area.Top) + "-" +
                    std::to_string(lane.Area.Bottom) + " ";
        return text;
    }
    std::string CursorOf(std::int32_t channels) {
        Switches.Recount(channels);
        const view::CursorRange range = view::CursorRangeOf(Laid(700, 300), Switches, channels);
        return std::to_string(range.Top) + "-" + std::to_string(range.Bottom);
    }

    editor::ChannelSwitches Switches;
};

TEST_F(LanesTest, GivesEachVisibleChannelItsPlace) {
    EXPECT_EQ(LanesOf(1), "0 14-268 ");
    EXPECT_EQ(LanesOf(2), "0 14-139 1 142-268 ");
    Switches.Visible[0] = 0;
    EXPECT_EQ(LanesOf(1), "");
    EXPECT_EQ(LanesOf(2), "1 10-272 ") << "all of the height";
    Switches.Visible[1] = 0;
    EXPECT_EQ(LanesOf(2), "");
}

TEST_F(LanesTest, DrawsTheCursorWhereEditsAct) {
    EXPECT_EQ(CursorOf(1), "0-262");
    EXPECT_EQ(CursorOf(2), "0-262");
    Switches.Operation[0] = 0;
    EXPECT_EQ(CursorOf(2), "136-262");
    Switches.Visible[0] = 0;
    EXPECT_EQ(CursorOf(2), "0-262") << "the only visible one";
    Switches.Visible = {1, 0};
    EXPECT_EQ(CursorOf(2), "0-0");
    Switches.Visible = {1, 1};
    Switches.Operation = {1, 0};
    EXPECT_EQ(CursorOf(2), "0-131");
    Switches.Visible = {0, 0};
    EXPECT_EQ(CursorOf(2), "0-0");
}

}  // namespace
}  // namespace mavrin2::tests
