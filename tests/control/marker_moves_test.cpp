// Markers without a control: how they move, what their texts say, what is shown of them.

#include <gtest/gtest.h>

#include "control/editor/markers/marker_display_list.h"
#include "control/editor/markers/marker_moves.h"
#include "control/editor/markers/marker_text.h"

namespace mavrin2::tests {
namespace {

using editor::EditStretch;
using editor::MarkerDisplayList;
using editor::MarkerList;
using editor::MarkerRecord;
using signal::Bytes;

MarkerRecord Marker(std::int64_t position, std::int64_t length, std::int64_t cutPoint = 0) {
    return {position, length, cutPoint, 0, 0, std::make_shared<const editor::MarkerTexts>()};
}

std::string PlacesOf(const MarkerList& list) {
    std::string text;
    for (const MarkerRecord& record : list.Records())
        text += (text.empty() ? "" : " ") + std::to_string(record.Position) + "+" +
                std::to_string(record.Length);
    return text;
}

// Of stereo: frames 100 to before 200 give way to `written` frames.
EditStretch Replacing(std::int64_t end, std::int64_t written) {
    return {Bytes(400), Bytes(end * 4), Bytes(400), Bytes(400 + written * 4)};
}

TEST(MarkerMoves, FollowTheTable) {
    struct {
        std::int64_t Position, Length;
        const char* Deleted;   // 100 … 200
        const char* Halved;    // to 50 frames
        const char* Inserted;  // 30 frames at 100
    } const cases[] = {
        {50, 0, "50+0", "50+0", "50+0"},
        {100, 0, "100+0", "100+0", "130+0"},
        {150, 0, "100+0", "125+0", "180+0"},
        {151, 0, "100+0", "126+0", "181+0"},
        {200, 0, "100+0", "150+0", "230+0"},
        {300, 7, "200+7", "250+7", "330+7"},
        {120, 30, "100+0", "110+15", "150+30"},
        {120, 80, "100+0", "120+80", "150+80"},
        {120, 100, "100+20", "110+60", "150+100"},
        {50, 100, "50+50", "50+75", "50+130"},
        {50, 50, "50+50", "50+50", "50+50"},
        {50, 200, "50+100", "50+150", "50+230"},
        {100, 50, "100+50", "100+50", "130+50"},
        {50, 150, "50+150", "50+150", "50+180"},
        {150, -60, "150+-60", "150+-60", "180+-60"},
    };
    const auto moved = [](const auto& c, const EditStretch& stretch) {
        MarkerList list;
        list.Append(Marker(c.Position, c.Length));
        const MarkerList before = list;
        const auto numbers = AdjustMarkersAfterEdit(list, stretch, Bytes(4));
        EXPECT_EQ(numbers.empty(), PlacesOf(list) == PlacesOf(before));
        EXPECT_EQ(before.Records()[0].Position, c.Position) << "the old version keeps its own";
        return PlacesOf(list);
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.Position) + "+" + std::to_string(c.Length));
        EXPECT_EQ(moved(c, Replacing(200, 0)), c.Deleted);
        EXPECT_EQ(moved(c, Replacing(200, 50)), c.Halved);
        EXPECT_EQ(moved(c, Replacing(100, 30)), c.Inserted);
    }
}

TEST(MarkerMoves, ReportWhatTheyDoNotStore) {
    MarkerList list;
    for (const std::int64_t position : {10, -5, 0x7fffffff, 0})
        list.Append(Marker(position, 1));
    EXPECT_EQ(ScaleMarkers(list, 2.5), (std::vector<std::int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(PlacesOf(list), "25+3 -5+3 2147483647+3 0+3");
}

TEST(MarkerText, IsWrittenInColumnsAndFoundAnywhere) {
    EXPECT_EQ(editor::MarkerText(8224255, 0), "Color:8224255  CutPoint:0       ");
    EXPECT_EQ(editor::MarkerText(0xffffffff, 123456789), "Color:-1       CutPoint:123456789");
    struct {
        automation::OleStringView Text;
        std::optional<std::uint32_t> Color;
        std::uint32_t Play;
        std::int64_t CutPoint;
    } const cases[] = {
        {OLESTR(""), std::nullopt, 0, 0},
        {OLESTR("abc Play:3 Color:16711680"), 16711680, 3, 0},
        {OLESTR("Color:123456789 CutPoint:123456789"), 12345678, 0, 123456789},
        {OLESTR("Color: -1x9 CutPoint:-7 CutPoint:8"), 0xffffffff, 0, 0},
        {OLESTR("color:1 Color:\u00e91 Play:\t +12345"), 0, 12345, 0},
        {OLESTR("CutPoint:99999999999"), std::nullopt, 0, 0x7fffffff},
    };
    for (const auto& c : cases) {
        const editor::MarkerTextValues values = editor::ParseMarkerText(c.Text);
        EXPECT_EQ(values.Color, c.Color);
        EXPECT_EQ(values.Play, c.Play);
        EXPECT_EQ(values.CutPoint, c.CutPoint);
    }
}

TEST(MarkerDisplayListTest, ShowsTheListAsItWasAtTheLastRebuild) {
    MarkerList list;
    for (const std::int64_t position : {30, 10, 10})
        list.Append(Marker(position, 5, 2));
    MarkerDisplayList shown;
    EXPECT_TRUE(shown.Rebuild(list, Bytes(4)));
    // Not yet read, and not to be seen: what another rebuild would show.
    list.Select(2);
    shown.ChangeUnseen(list, 2, [&] { list.OwnCurrent().Color = 7; });
    list.OwnRecords()[0].Position = 99;

    std::string text;
    for (const auto& entry : shown.Entries())
        text += std::to_string(entry.Number) + "@" + std::to_string(entry.Position.Count()) + "-" +
                std::to_string(entry.End().Count()) + "/" + std::to_string(entry.Cut().Count()) +
                " " + std::to_string(entry.Color) + "; ";
    EXPECT_EQ(text, "2@40-60/48 0; 3@40-60/48 0; 1@120-140/128 0; ");
    list = {};
    EXPECT_TRUE(shown.Rebuild(list, Bytes(4))) << "markers are to be wiped off";
    EXPECT_FALSE(shown.Rebuild(list, Bytes(4)));
}

TEST(MarkerDisplayListTest, FindsTheNearestOfWhatIsInView) {
    MarkerList list;
    list.Append(Marker(10, 20, 15));
    list.Append(Marker(12, 0));
    list.Append(Marker(50, 0));
    MarkerDisplayList shown;
    shown.Rebuild(list, Bytes(2));
    EXPECT_EQ(shown.HitTestMarker(Bytes(20)).Index, -1) << "nothing was drawn";
    shown.SetVisible({0, 2});
    // Starts, ends and cut points in bytes: 20, 60, 50; 24; 100.
    const std::pair<std::int64_t, std::int32_t> hits[] = {{0, 1},  {22, 1}, {23, 2}, {36, 2},
                                                          {37, 1}, {80, 1}, {81, 3}, {999, 3}};
    for (const auto& [position, number] : hits)
        EXPECT_EQ(shown.HitTestMarker(Bytes(position)).Number, number) << position;
    shown.SetVisible({1, 1});
    EXPECT_EQ(shown.HitTestMarker(Bytes(999)).Number, 2);
    // The next frame has not been drawn yet.
    shown.SetVisible({0, 2});
    list.DeleteCurrent();
    shown.Rebuild(list, Bytes(2));
    EXPECT_EQ(shown.HitTestMarker(Bytes(999)).Number, 2);
}

}  // namespace
}  // namespace mavrin2::tests
