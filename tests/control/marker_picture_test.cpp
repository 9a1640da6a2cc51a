#include "control/view/marker_tooltip.h"
#include "tests/control/settings_test.h"

namespace mavrin2::tests {
namespace {

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kShade = 0x414141;
constexpr const char* kLine = "2-6 9-272(136) ";  // in the bar, two flags, dashes from 13 to 266

// Of 600 × 300 pixels, with 1000 frames in each of 546 columns. The overview bar is in rows 2 to 6,
// the wave area begins at (2, 9); its margins are rows 9 to 12 and 269 to 272.
class MarkerPicture : public SettingsTest {
protected:
    MarkerPicture() {
        Parts->ScaleX->put_Grid(0);
        Parts->ScaleY->put_Grid(0);
        OpenFrames(1);
    }

    void OpenFrames(std::int32_t channels) {
        Dusoro->Source.Samples = Samples(546000 * static_cast<std::size_t>(channels), 0);
        Dusoro->Source.Channels = channels;
        Parts->Editor->Opening.Open("/sound.wav", interfaces::FormatTypeConstants::DEFAULT);
    }
    void Add(std::int64_t position, std::int64_t length, std::uint32_t color = kRed,
             std::int64_t cut = 0) {
        List.Append({position, length, cut, view::ToPixel(color).Value, 0,
                     std::make_shared<editor::MarkerTexts>()});
        if (editor::DocumentState* document = Parts->Position->History().Current())
            document->Markers = List;
        Parts->State.MarkerDisplay.Rebuild(List, Parts->State.Format.FrameSize());
        Parts->Editor->View.OperationChannelsChanged();
    }
    void Select(std::int32_t start, std::int32_t end) {
        Parts->Editor->Positions.SetSelected(1);
        Parts->Editor->Positions.SetEndSelect(end);
        Parts->Editor->Positions.SetStartSelect(start);
    }
    // The rows of the document's column that have a colour, 0x00RRGGBB, as "first-last " and with
    // their number when they are dashed.
    std::string Rows(std::int32_t column, std::uint32_t color) {
        const Image image = Shown();
        std::vector<std::size_t> rows;
        for (std::size_t y = 0; y < 300; ++y)
            if (image[y * 600 + 2 + static_cast<std::size_t>(column)] == color) rows.push_back(y);
        std::string text;
        for (std::size_t i = 0, end = 0; i < rows.size(); i = end) {
            for (end = i + 1; end < rows.size() && rows[end] <= rows[end - 1] + 3 &&
                              (rows[end] > 8) == (rows[end - 1] > 8);)
                ++end;
            text += std::to_string(rows[i]) + "-" + std::to_string(rows[end - 1]);
            text += end - i > rows[end - 1] - rows[i] ? " " : "(" + std::to_string(end - i) + ") ";
        }
        return text;
    }
    std::string Visible() {
        const auto visible = Parts->State.MarkerDisplay.Visible();
        return std::to_string(visible.First) + " to " + std::to_string(visible.Last);
    }

    editor::MarkerList List;
};

TEST_F(MarkerPicture, HasFlagsLinesAndAPlaceInTheOverviewBar) {
    Add(100000, 0);
    Add(200000, 100000);
    Add(400000, 0, kGreen, 40000);
    const std::string rows[] = {kLine, "9-11 270-272 ", "9-10 271-272 ", "9-9 272-272 ", ""};
    for (std::int32_t d = 0; d <= 4; ++d) {
        for (const std::int32_t column : {100 - d, 100 + d, 200 + d, 300 - d})
            EXPECT_EQ(Rows(column, kRed), rows[d]) << column;
        const char* block = d == 0 ? "9-272(136) " : d < 4 ? "9-12 269-272 " : "";
        EXPECT_EQ(Rows(440 - d, kGreen), block);
        EXPECT_EQ(Rows(440 + d, kGreen), block);
    }
    EXPECT_EQ(Rows(199, kRed) + Rows(301, kRed), "");
    Parts->Editor->MarkerView.SetBarEnabled(0);
    EXPECT_EQ(Rows(300, kRed), "2-6 9-12 269-272 ");
    EXPECT_EQ(Rows(440, kGreen), "9-272(136) ") << "a cut point keeps its line";
    Parts->Editor->MarkerView.SetBarEnabled(1);

    Parts->Editor->Zooming.ZoomTo(150000, 250000);
    EXPECT_EQ(Rows(100, kRed), "2-6 ") << "out of view";
    EXPECT_EQ(Rows(273, kRed), "9-272(136) ");
    EXPECT_EQ(Rows(545, kRed), "") << "the end is out of view";
    EXPECT_EQ(Visible(), "1 to 1");

    Parts->Editor->Zooming.ZoomTo(0, 546000);
    Select(200000, 440000);
    EXPECT_EQ(Rows(200, kRed), "2-6 9-12 269-272 ") << "no line at the edge of the selection";
    EXPECT_EQ(Rows(441, kGreen), "") << "no cut point either";
}

TEST_F(MarkerPicture, ShowsNoneWhenTooManyAreInView) {
    for (std::int64_t i = 50; i >= 0; --i)
        Add(i * 10000, 0);
    EXPECT_EQ(Visible(), "0 to 50");
    EXPECT_EQ(Rows(400, kRed), kLine);
    Add(20000, 30, kGreen);
    EXPECT_EQ(Visible(), "0 to 51");
    EXPECT_EQ(Rows(400, kRed) + Rows(20, kGreen), "");
    Parts->Editor->Zooming.ZoomTo(15000, 25000);
    EXPECT_EQ(Visible(), "2 to 3");
    EXPECT_EQ(Rows(400, kRed), "2-6 ");
    EXPECT_EQ(Rows(20, kGreen), "2-6 ") << "the later one";
    // Outside of the document, or spanning the view.
    List = {};
    Add(-2147483648LL, 2147483647);
    Add(2147483647, 2147483647);
    Add(0, 400000);
    EXPECT_EQ(Visible(), "-1 to -1");
    EXPECT_EQ(Rows(400, kRed), "2-6 ");
}

TEST_F(MarkerPicture, ShadesRangesBelowTheSelection) {
    Add(100000, 100000);
    Add(150000, 20000);
    Add(160000, 90000);
    EXPECT_EQ(Rows(99, kShade) + Rows(251, kShade), "");
    EXPECT_NE(Rows(250, kShade), "");
    const std::string shaded = "13-268(253) ";  // all but the lane's own lines
    EXPECT_EQ(Rows(110, kShade) + Rows(205, kShade), shaded + shaded);
    Select(0, 220000);
    EXPECT_EQ(Rows(205, kShade), "");
    Parts->Editor->Positions.SetSelected(0);
    Parts->Editor->Zooming.ZoomTo(230000, 240000);
    EXPECT_EQ(Rows(0, kShade) + Rows(545, kShade), shaded + shaded) << "it spans the view";
    Parts->Editor->Zooming.ZoomTo(250000, 260000);
    EXPECT_EQ(Rows(1, kShade), "");
    Parts->Editor->MarkerView.SetBackgroundEnabled(0);
    EXPECT_EQ(Rows(0, kShade), "");
}

TEST_F(MarkerPicture, KeepsToTheChannelThatIsEdited) {
    OpenFrames(2);
    Add(100000, 100000);
    const auto edit = [&](std::int16_t left, std::int16_t right, std::int16_t leftVisible = 1) {
        Parts->State.Channels.Operation = {left, right};
        Parts->State.Channels.Visible[0] = leftVisible;
        Parts->State.Channels.Recount(2);
        Parts->Editor->View.OperationChannelsChanged();
        return Rows(100, kRed) + "/ " + Rows(150, kShade);
    };
    EXPECT_EQ(edit(1, 0), "2-6 9-138(68) 269-272 / 13-138(123) ");
    EXPECT_EQ(edit(0, 1), "2-6 9-12 143-264(62) 269-272 / 143-268(123) ");
    EXPECT_EQ(edit(0, 0), "2-6 9-272(136) / ");
    EXPECT_THAT(edit(1, 0, 0), testing::StartsWith("2-6 9-12 269-272 / ")) << "hidden";
}

TEST_F(MarkerPicture, ChangesWithItsSettingsOnly) {
    Add(100000, 0);
    Add(200000, 50000);
    view::MarkerView& markers = Parts->Editor->MarkerView;
    markers.SetBitmapType(0);
    EXPECT_EQ(Rows(100, 0xFF7D7D), kLine);
    EXPECT_EQ(Rows(200, 0x24BCFF), kLine);
    markers.SetBitmapType(1);
    EXPECT_EQ(Rows(200, kRed), kLine);
    Redraws();
    using Setter = void (view::MarkerView::*)(std::int16_t);
    for (const Setter set :
         {&view::MarkerView::SetBarEnabled, &view::MarkerView::SetBackgroundEnabled,
          &view::MarkerView::SetBitmapType}) {
        (markers.*set)(1);
        EXPECT_EQ(Redraws(), 0);
        (markers.*set)(-1);
        EXPECT_GT(Redraws(), 0);
    }
}

}  // namespace
}  // namespace mavrin2::tests
