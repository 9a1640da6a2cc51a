#include <cstring>

#include "tests/control/settings_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::TypeViewConstants;

// Of 600 × 300 pixels: the wave area is (2, 9) to (548, 272), 546 columns wide, and the one lane of
// a mono document (2, 12) to (548, 269) with its middle at 140.
class PictureTest : public SettingsTest {
protected:
    static constexpr std::int32_t kLeft = 2;
    static constexpr std::int32_t kColumns = 546;
    static constexpr std::int32_t kMiddle = 140;
    static constexpr std::int32_t kHalf = 128;

    // 0x00RRGGBB of one pixel.
    std::uint32_t At(std::int32_t x, std::int32_t y) {
        const Image image = Shown();
        return image[static_cast<std::size_t>(y * 600 + x)];
    }
    // The rows of a column that have a colour, as "first-last" of each run.
    std::string RowsOf(std::int32_t x, std::uint32_t color) {
        const Image image = Shown();
        std::string rows;
        for (std::int32_t y = 0; y < 300; ++y) {
            const auto is = [&](std::int32_t row) {
                return row >= 0 && row < 300 &&
                       image[static_cast<std::size_t>(row * 600 + x)] == color;
            };
            if (is(y) && !is(y - 1)) rows += std::to_string(y) + "-";
            if (is(y) && !is(y + 1)) rows += std::to_string(y) + " ";
        }
        return rows;
    }

    void OpenFrames(const Samples& samples, std::int32_t channels = 1) {
        Dusoro->Source.Samples = samples;
        Dusoro->Source.Channels = channels;
        Parts->Editor->Opening.Open("/sound.wav", interfaces::FormatTypeConstants::DEFAULT);
    }
    void PaintAt(const view::Rectangle& bounds) {
        Image image(400);
        platform::PixelTarget target({image.data(), 20, 20, 20});
        Parts->Editor->View.Paint(target, bounds);
    }
};

constexpr std::uint32_t kDigital = 0x1CF0AB;
constexpr std::uint32_t kAnalog = 0x007E56;
constexpr std::uint32_t kSelectDigital = 0x204760;
constexpr std::uint32_t kSelectBackground = 0xFFFFFF;
constexpr std::uint32_t kCenter = 0xA42626;
constexpr std::uint32_t kCursor = 0xFFFF00;
constexpr std::uint32_t kBoundary = 0x6F879F;
constexpr std::uint32_t kGrey = 0x4A4A4A;
constexpr std::uint32_t kShadow = 0x808080;
constexpr std::uint32_t kHighlight = 0xFFFFFF;
constexpr std::uint32_t kFace = 0xD4D0C8;

TEST_F(PictureTest, HasTheBorderOfItsType) {
    struct {
        std::int16_t Type;
        // Outer and inner, where nothing is drawn over them: top, left, bottom and right.
        std::uint32_t Edges[7];
    } const cases[] = {
        {0, {kShadow, kShadow, kFace, kHighlight, kShadow, kHighlight, kShadow}},
        {1, {kHighlight, kHighlight, kShadow, kShadow, kHighlight, kShadow, kHighlight}},
        {2, {kHighlight, kHighlight, kFace, 0, kShadow, 0, kShadow}},
        {3, {kShadow, kShadow, kShadow, kHighlight, kFace, kHighlight, kFace}},
        {7, {kFace, kFace, kFace, kFace, kFace, kFace, kFace}},
    };
    for (const auto& c : cases) {
        Parts->Editor->View.SetTypeBorder(c.Type);
        EXPECT_THAT((std::vector<std::uint32_t>{At(300, 0), At(0, 150), At(1, 150), At(300, 299),
                                                At(300, 298), At(599, 150), At(598, 150)}),
                    testing::ElementsAreArray(c.Edges))
            << c.Type;
    }
}

TEST_F(PictureTest, DrawsPeaksAroundTheMiddle) {
    // One value for each column, and a thousand samples of it.
    Samples samples(546000, 0);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::int16_t>(i / 1000 < 100   ? 32767
                                               : i / 1000 < 200 ? -32768
                                                                : 0);
    OpenFrames(samples);
    const std::int32_t peak = 32767 * kHalf / 35000;
    EXPECT_EQ(RowsOf(kLeft + 50, kDigital),
              "2-6 " + std::to_string(kMiddle - peak) + "-" + std::to_string(kMiddle - peak) + " ");
    const std::int32_t low = 32768 * kHalf / 35000;
    EXPECT_EQ(RowsOf(kLeft + 150, kDigital),
              "2-6 " + std::to_string(kMiddle + low) + "-" + std::to_string(kMiddle + low) + " ");
    // Where both meet, all between them.
    EXPECT_EQ(RowsOf(kLeft + 100, kDigital), "2-6 " + std::to_string(kMiddle - peak) + "-" +
                                                 std::to_string(kMiddle + low - 2) + " ");
    EXPECT_EQ(At(kLeft + 50, kMiddle), kCenter);
    // Full scale lies just inside: 32768 × 127 / 2 ÷ 35000 … of the lane less its edges.
    const std::int32_t boundary = 32768 * ((269 - 2 - (12 + 2)) / 2) / 35000;
    EXPECT_EQ(RowsOf(kLeft + 400, kBoundary), std::to_string(14 + 127 - boundary) + "-" +
                                                  std::to_string(14 + 127 - boundary) + " " +
                                                  std::to_string(14 + 127 + boundary) + "-" +
                                                  std::to_string(14 + 127 + boundary) + " ");

    Parts->Editor->Zooming.ZoomVertical(50);
    EXPECT_EQ(RowsOf(kLeft + 50, kDigital), "2-6 12-12 ") << "cut off at the edge";
    EXPECT_EQ(RowsOf(kLeft + 400, kBoundary), "");
    Parts->Editor->Zooming.ZoomVertical(0);
    EXPECT_EQ(Parts->Editor->View.TypeView(), TypeViewConstants::WAVEFORM);
}

TEST_F(PictureTest, ShowsTheSelectionInColoursOfItsOwn) {
    OpenFrames(Samples(546000, 16000));
    Parts->Editor->Positions.SetSelected(1);
    Parts->Editor->Positions.SetEndSelect(273000);
    Parts->Editor->Positions.SetStartSelect(109200);
    EXPECT_EQ(At(kLeft + 108, 200), 0u);
    EXPECT_EQ(At(kLeft + 109, 200), kSelectBackground);
    EXPECT_EQ(At(kLeft + 273, 200), kSelectBackground) << "the last column too";
    EXPECT_EQ(At(kLeft + 274, 200), 0u);
    const std::int32_t row = kMiddle - 16000 * kHalf / 35000;
    EXPECT_EQ(At(kLeft + 108, row), kDigital);
    EXPECT_EQ(At(kLeft + 109, row), kSelectDigital);
    EXPECT_EQ(At(kLeft + 273, row), kSelectDigital);
    EXPECT_EQ(At(kLeft + 274, row), kDigital);
    // Its edges: triangles of four rows that point into it.
    EXPECT_EQ(RowsOf(kLeft + 109, kCursor), "9-12 269-272 ");
    EXPECT_EQ(RowsOf(kLeft + 112, kCursor), "9-9 272-272 ");
    EXPECT_EQ(RowsOf(kLeft + 270, kCursor), "9-9 272-272 ");
    EXPECT_EQ(RowsOf(kLeft + 274, kCursor), "");
    // And in the overview bar, where all of it is in view.
    EXPECT_EQ(RowsOf(kLeft + 200, 0x0ED394), "2-6 ");

    Parts->Editor->Positions.SetSelected(0);
    EXPECT_EQ(At(kLeft + 109, 200), 0u);
    EXPECT_EQ(At(kLeft + 150, row), kDigital);
    EXPECT_EQ(At(kLeft + 109, 12), kCursor) << "the cursor's triangle";
    EXPECT_EQ(At(kLeft + 109, 9 + 8), kCursor) << "and its dashes";
    EXPECT_EQ(At(kLeft + 109, 9 + 10), 0u);
}

TEST_F(PictureTest, DrawsACurveAndPointsFromNear) {
    Samples samples(2000);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::int16_t>(i % 2 ? 10000 : -10000);
    OpenFrames(samples);
    Parts->Editor->Zooming.ZoomTo(100, 120);
    // 20 samples in 546 columns: points of level 3, 7 wide and 6 high.
    const std::int32_t x = kLeft + 27;  // of frame 101, 546 / 20 columns in
    const std::int32_t y = kMiddle - 10000 * kHalf / 35000;
    const Image image = Shown();
    for (std::int32_t dx = -6; dx <= 5; ++dx)
        for (std::int32_t dy = -6; dy <= 5; ++dy) {
            const bool inside = dx >= -4 && dx <= 2 && dy >= -3 && dy <= 2;
            const bool digital =
                image[static_cast<std::size_t>((y + dy) * 600 + x + dx)] == kDigital;
            EXPECT_EQ(digital, inside) << dx << ", " << dy;
        }
    EXPECT_TRUE(Has(image, 0x567E00)) << "the curve";
    // Half way between two samples the curve crosses the middle.
    const auto* middle = &image[static_cast<std::size_t>(kMiddle * 600 + kLeft)];
    EXPECT_TRUE(std::find(middle + 39, middle + 44, kAnalog) != middle + 44);
    EXPECT_TRUE(std::find(middle + 24, middle + 31, kAnalog) == middle + 31);
}

TEST_F(PictureTest, ShowsChannelsAsTheyAreSwitched) {
    Samples samples;
    for (int i = 0; i < 546000; ++i)
        samples.insert(samples.end(), {16000, -16000});
    OpenFrames(samples, 2);
    Parts->ScaleX->put_Grid(0);
    Parts->ScaleY->put_Grid(0);
    // Lanes of (9 + 3, 139) and (142, 269), and three lines between them.
    EXPECT_EQ(At(kLeft + 200, 9 + 131), kHighlight);
    EXPECT_EQ(At(kLeft + 200, 9 + 130), kShadow);
    EXPECT_EQ(At(590, 9 + 131), kHighlight) << "through the scale as well";
    const std::int32_t left = 12 + 63 - 16000 * 63 / 35000;
    const std::int32_t right = 142 + 63 + 16000 * 63 / 35000;
    EXPECT_EQ(RowsOf(kLeft + 200, kDigital),
              "2-6 " + std::to_string(left) + "-" + std::to_string(left) + " " +
                  std::to_string(right) + "-" + std::to_string(right) + " ");
    Parts->Channels->put_Num(1);
    Parts->Channels->put_Operation(0);
    Parts->Editor->Positions.SetSelected(1);
    Parts->Editor->Positions.SetEndSelect(546000);
    EXPECT_EQ(At(kLeft + 200, left), kGrey);
    EXPECT_EQ(At(kLeft + 200, right), kSelectDigital);
    EXPECT_EQ(At(kLeft + 200, 100), 0u) << "no selection where nothing is edited";
    EXPECT_EQ(At(kLeft + 200, 160), kSelectBackground);

    Parts->Channels->put_Visible(0);
    EXPECT_EQ(At(kLeft + 200, 9 + 131 + 16000 * 131 / 35000), kSelectDigital)
        << "the other one has all of the height";
}

TEST_F(PictureTest, CopiesWhatItHasWhileNothingChanges) {
    OpenSamples();
    const Image before = Shown();
    Parts->Environment.Ports.Files->Remove(Parts->Position->History().Current()->WorkFilePath);
    EXPECT_EQ(Shown(), before);
    // The sound cannot be read any more: what was shown stays, and zooming too.
    Parts->Editor->Zooming.ZoomIn();
    EXPECT_EQ(Parts->Position->History().Current()->ZoomIndex, 1);
    EXPECT_EQ(Shown(), before);
}

TEST_F(PictureTest, ShowsWhereItPlaysOverTheFrame) {
    OpenFrames(Samples(546000, 16000));
    const Image still = Shown();
    Parts->State.Play.PlayColumn = 200;
    for (const auto status : {editor::StatusConstants::Playing, editor::StatusConstants::Paused}) {
        const editor::OperationTicket ticket(Parts->State.Operations, Parts->Position->History());
        const editor::StatusGuard guard(Parts->State.Status, ticket, status);
        const Image playing = Shown();
        for (std::size_t y = 0; y < 300; ++y) {
            const bool dash = y >= 9 && y < 272 && (y - 9) % 4 < 2;
            EXPECT_EQ(playing[y * 600 + kLeft + 200] == 0xDCDCDC, dash) << y;
            EXPECT_EQ(playing[y * 600 + kLeft + 201], still[y * 600 + kLeft + 201]);
        }
    }
    EXPECT_EQ(Shown(), still);
}

TEST_F(PictureTest, FollowsUndo) {
    OpenFrames(Samples(546000, 16000));
    Parts->Editor->Positions.SetSelected(1);
    Parts->Editor->Positions.SetEndSelect(200000);
    Parts->Editor->Positions.SetStartSelect(100000);
    Parts->Editor->Zooming.ZoomIn();
    const Image before = Shown();
    Parts->Editor->Edits.DeleteSelect();
    EXPECT_NE(Shown(), before);
    Parts->Editor->UndoRedo.Undo();
    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(Parts->Editor->Positions.StartView(), 100000);
    EXPECT_EQ(MadeAnew(), before);
}

TEST_F(PictureTest, ZoomsInNinetyNineTimes) {
    OpenFrames(Samples(4000, 100));
    Parts->Editor->Positions.SetSelected(1);
    for (int i = 1; i <= 101; ++i) {
        Parts->Editor->Positions.SetEndSelect(4000 - i);
        Parts->Editor->Positions.SetStartSelect(i);
        Parts->Editor->Zooming.ZoomIn();
        EXPECT_EQ(Parts->Position->History().Current()->ZoomIndex, std::min(i, 99));
    }
    Parts->Editor->Zooming.ZoomFull();
    EXPECT_EQ(Parts->Position->History().Current()->ZoomIndex, 0);
    EXPECT_EQ(Parts->Editor->Positions.StartSelect(), 101);
    EXPECT_EQ(Parts->Editor->Positions.EndSelect(), 3899);
    EXPECT_EQ(Parts->Editor->Positions.EndView(), 4000);
}

TEST_F(PictureTest, ZoomsToRangesWithinTheDocument) {
    OpenFrames(Samples(2000, 100), 2);
    struct {
        std::int32_t Start, End, ShownStart, ShownEnd;
    } const cases[] = {{100, 500, 100, 500},   {500, 100, 100, 500},    {-50, 50, 0, 100},
                       {900, 1100, 800, 1000}, {5000, 5100, 900, 1000}, {-5, 5000, 0, 1000},
                       {1200, 5000, 0, 1000},  {-90000, 90000, 0, 1000}};
    for (const auto& c : cases) {
        Parts->Editor->Zooming.ZoomTo(c.Start, c.End);
        EXPECT_EQ(Parts->Editor->Positions.StartView(), c.ShownStart) << c.Start;
        EXPECT_EQ(Parts->Editor->Positions.EndView(), c.ShownEnd) << c.Start;
    }
    Parts->Editor->Positions.SetSelected(1);
    Parts->Editor->Positions.SetEndSelect(502);
    Parts->Editor->Positions.SetStartSelect(500);
    Parts->Editor->Zooming.ZoomIn();
    EXPECT_EQ(Parts->Position->History().Current()->ZoomIndex, 8) << "two frames are too few";
    Parts->Editor->Positions.SetEndSelect(503);
    Parts->Editor->Zooming.ZoomIn();
    EXPECT_EQ(Parts->Editor->Positions.EndView(), 503);
    Parts->Editor->Zooming.ZoomOut();
    EXPECT_EQ(Parts->Editor->Positions.StartView(), 0);
    EXPECT_EQ(Parts->Editor->Positions.Selected(), 1);
}

TEST_F(PictureTest, TakesAnySize) {
    struct {
        std::int32_t Width, Height;
    } const sizes[] = {{0, 0},     {1, 1}, {2, 2},    {1, 900},   {3, 2000},
                       {8000, 10}, {9, 9}, {190, 65}, {3100, 200}};
    Samples square(20000);
    for (std::size_t i = 0; i < square.size(); ++i)
        square[i] = static_cast<std::int16_t>(i / 40 % 2 ? 32767 : -32768);
    std::int16_t orientation = 1;
    for (const Samples& samples : {Samples(), Samples(2), square}) {
        OpenFrames(samples, 2);
        for (const auto view : {TypeViewConstants::SPECTRAL, TypeViewConstants::EXPANDED,
                                TypeViewConstants::WAVEFORM}) {
            Parts->Editor->View.SetTypeView(view);
            orientation = static_cast<std::int16_t>(3 - orientation);
            Parts->ScaleY->put_Orientation(orientation);
            for (const auto& size : sizes) {
                PaintAt({0, 0, size.Width, size.Height});
                Parts->Editor->Zooming.ZoomTo(0, 30);
                PaintAt({5, -3, size.Width + 5, size.Height - 3});
                Parts->Editor->Zooming.ZoomFull();
                Parts->Editor->Positions.SetSelected(1);
                Parts->Editor->Positions.SetEndSelect(7);
                Parts->Editor->Positions.SetSelected(0);
            }
        }
    }
    EXPECT_EQ(Shown().size(), 600u * 300u);
}

// A minute and a half of stereo at 44100 Hz is too long to be shown without a summary.
TEST_F(PictureTest, KeepsASummaryOfLongSounds) {
    Samples samples(8000000);
    std::uint32_t noise = 1;
    for (auto& sample : samples) {
        noise = noise * 1664525 + 1013904223;
        sample = static_cast<std::int16_t>(noise >> 16);
    }
    Dusoro->Source.Frequency = 44100;
    OpenFrames(samples, 2);
    const Image opened = Shown();
    Parts->Editor->Positions.SetSelected(1);
    Parts->Editor->Positions.SetEndSelect(900001);
    Parts->Editor->Positions.SetStartSelect(400000);
    Parts->Editor->Edits.DeleteSelect();
    // Seen while it was written, or read again: the same.
    const Image seen = Shown();
    EXPECT_NE(seen, opened);
    Parts->Editor->UndoRedo.Undo();
    Parts->Editor->UndoRedo.Redo();
    EXPECT_EQ(Shown(), seen);
}

TEST_F(PictureTest, DrawsNothingInABatchAndAllAtItsEnd) {
    const auto views = {TypeViewConstants::WAVEFORM, TypeViewConstants::SPECTRAL,
                        TypeViewConstants::EXPANDED};
    for (const auto before : views)
        for (const auto after : views)
            for (const bool paints : {false, true}) {
                SCOPED_TRACE(testing::Message() << int(before) << int(after) << paints);
                OpenSamples();
                Parts->Editor->View.SetTypeView(before);
                const Image shown = Shown();
                Redraws();
                Parts->Editor->UndoRedo.BeginOperations();
                Parts->Editor->Edits.DeleteSelect();
                Parts->Editor->View.SetTypeBorder(static_cast<std::int16_t>(paints));
                Parts->Colors->put_Scales(0x123456 + static_cast<int>(after));
                Parts->Editor->View.SetTypeView(after);
                Parts->Editor->Zooming.ZoomVertical(paints ? 50 : 100);
                EXPECT_EQ(Shown(), shown);
                if (paints) {
                    PaintAt({0, 0, 300, 100});
                    EXPECT_EQ(Shown(), Image(shown.size())) << "no frame of this size yet";
                }
                EXPECT_EQ(Redraws(), 0);
                Parts->Editor->UndoRedo.EndOperations();
                EXPECT_EQ(Redraws(), 1);
                EXPECT_TRUE(IsAsMadeAnew());
            }
}

TEST_F(PictureTest, HasTheScalesOfTheDocumentThatIsOpened) {
    const auto open = [&](std::int32_t bits, std::int32_t channels) {
        Dusoro->Source.Bits = bits;
        OpenFrames(Samples(9000, 5000), channels);
    };
    Dusoro->Source.Frequency = 4000;
    for (const auto view : {TypeViewConstants::WAVEFORM, TypeViewConstants::SPECTRAL}) {
        Parts->Editor->View.SetTypeView(view);
        open(16, 1);
        EXPECT_TRUE(IsAsMadeAnew());
        open(8, 2);
        EXPECT_TRUE(IsAsMadeAnew()) << "other bits and channels";
        Parts->Editor->Zooming.ZoomVertical(10);
        Dusoro->Source.Frequency = 2000;
        open(16, 2);
        EXPECT_TRUE(IsAsMadeAnew()) << "another rate";
        Parts->Editor->Opening.New(8000, 1);
        EXPECT_TRUE(IsAsMadeAnew()) << "a new one";
        // A version that had another rate.
        Parts->State.Format.Frequency = 1000;
        Parts->State.Steps.LastStepCount = 0;
        Parts->Editor->UndoRedo.Undo();
        EXPECT_TRUE(IsAsMadeAnew());
        Parts->Editor->Zooming.ZoomVertical(100);
    }
}

TEST_F(PictureTest, HasBoundaryLinesWhereTheViewHasThemWithoutScales) {
    OpenFrames(Samples(546000, 0));
    Parts->ScaleY->put_Visible(0);
    const std::string whole = RowsOf(kLeft + 400, kBoundary);
    Parts->Editor->Zooming.ZoomVertical(200);
    EXPECT_NE(RowsOf(kLeft + 400, kBoundary), whole);
    const std::int32_t distance = 32768 * ((269 - 2 - (12 + 2)) / 2) / 70000;
    EXPECT_EQ(At(kLeft + 400, 14 + 127 - distance), kBoundary);
    // The grid of a time scale that has no room: a line for each 10000 frames, or each 50.
    const auto gridAt = [&](std::int32_t column) {
        Image image(600 * 70);
        platform::PixelTarget target({image.data(), 600, 70, 600});
        Parts->Editor->View.Paint(target, {0, 0, 600, 70});
        return image[static_cast<std::size_t>(20 * 600 + kLeft + column)] == 0x042C4F;
    };
    Parts->ScaleY->put_Grid(0);
    EXPECT_TRUE(gridAt(109));
    Parts->Editor->Zooming.ZoomTo(0, 595);
    EXPECT_TRUE(gridAt(100));
}

// Columns that both the selection and the visible range have.
TEST_F(PictureTest, LightensTheSelectionInTheOverviewBarWhereItIsVisible) {
    constexpr std::uint32_t kDark = 0x0CAB77;
    constexpr std::uint32_t kLight = 0x0ED394;
    OpenFrames(Samples(546000, 0));
    const auto bar = [&](std::int32_t start, std::int32_t end) {
        Parts->Editor->Positions.SetSelected(0);
        Parts->Editor->Positions.SetStartSelect(start * 1000);
        Parts->Editor->Positions.SetSelected(1);
        Parts->Editor->Positions.SetEndSelect(end * 1000);
        const Image image = Shown();
        std::string columns;
        for (std::int32_t x = 0; x < 548; ++x) {
            const std::uint32_t color = image[static_cast<std::size_t>(4 * 600 + x)];
            const char kind = color == kDark ? 'd' : color == kLight ? 'l' : '.';
            if (columns.empty() || columns.back() != kind)
                columns += std::to_string(x - kLeft) + kind;
        }
        return columns;
    };
    Parts->Editor->Zooming.ZoomTo(100000, 200000);  // the thumb covers columns 100 … 200
    EXPECT_EQ(bar(50, 150), "-2.50d100l150.");
    EXPECT_EQ(bar(120, 130), "-2.120l130.");
    EXPECT_EQ(bar(150, 250), "-2.150l201d250.");
    EXPECT_EQ(bar(300, 310), "-2.300d310.");
    EXPECT_EQ(bar(50, 100), "-2.50d100.");
    Parts->Editor->Positions.SetEndSelect(50500);
    Parts->Editor->Positions.SetStartSelect(50100);
    EXPECT_FALSE(Has(Shown(), 0x94D30E)) << "narrower than a column";
}

TEST_F(PictureTest, ShowsSoundInAllColumnsOfAWideControl) {
    constexpr int kWide = 3840;
    Image image(static_cast<std::size_t>(kWide) * 300);
    platform::PixelTarget target({image.data(), kWide, 300, kWide});
    const view::Rectangle bounds{0, 0, kWide, 300};
    const auto rowHas = [&](int x, std::uint32_t color) {
        for (std::size_t y = 9; y < 272; ++y)
            if (image[y * kWide + static_cast<std::size_t>(x)] == color) return true;
        return false;
    };
    Parts->ScaleX->put_Grid(0);
    Parts->ScaleY->put_Grid(0);
    // Peaks, a curve and a spectrum.
    OpenFrames(Samples(20000, 16000));
    Parts->Editor->View.Paint(target, bounds);
    EXPECT_TRUE(rowHas(2900, kDigital));
    EXPECT_TRUE(rowHas(3700, kDigital));
    Parts->Editor->Zooming.ZoomTo(0, 400);
    Parts->Editor->View.Paint(target, bounds);
    bool curve = false;  // between two points
    for (int x = 3700; x < 3712; ++x)
        curve = curve || rowHas(x, kAnalog);
    EXPECT_TRUE(curve);
    Parts->Editor->View.SetTypeView(TypeViewConstants::SPECTRAL);
    Parts->Editor->View.Paint(target, bounds);
    EXPECT_NE(image[140 * kWide + 3700], 0u) << "silence has a shade too";
}

TEST_F(PictureTest, IsTheSameInBands) {
    constexpr int kWide = 2100;
    constexpr int kHigh = 2050;  // more than is kept as a whole
    const view::Rectangle bounds{0, 0, kWide, kHigh};
    auto& view = Parts->Editor->View;
    OpenFrames(Samples(2 * 20000, 16000), 2);
    Parts->Editor->Positions.SetSelected(1);
    Parts->Editor->Positions.SetEndSelect(9000);
    Parts->Editor->Positions.SetStartSelect(4000);
    for (const auto type : {TypeViewConstants::WAVEFORM, TypeViewConstants::SPECTRAL}) {
        view.SetTypeView(type);
        Image whole(kWide * kHigh);
        platform::PixelTarget all({whole.data(), kWide, kHigh, kWide});
        view.Paint(all, bounds);
        for (const int rows : {1, 700}) {
            PaintAt({0, 0, 20, 20});  // elsewhere: there is nothing to copy
            Image band(static_cast<std::size_t>(kWide * rows));
            for (int top = 0; top + rows <= kHigh; top += rows == 1 ? 97 : rows) {
                platform::PixelTarget part({band.data(), kWide, rows, kWide}, {0, -top},
                                           {0, 0, kWide, rows});
                view.Paint(part, bounds, {top, top + rows});
                ASSERT_TRUE(std::ranges::equal(
                    band,
                    std::span(whole).subspan(static_cast<std::size_t>(top * kWide), band.size())))
                    << top;
            }
        }
    }
    view.SaveWaveImage("/large.bmp");
    const auto file = Parts->Environment.Ports.Files->OpenForReading("/large.bmp");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Length(), 66 + std::int64_t{kWide} * kHigh * 4);
}

TEST_F(PictureTest, WritesItsLastFrameAsABitmap) {
    auto& files = *Parts->Environment.Ports.Files;
    OpenSamples();
    const Image image = Shown();
    Parts->Editor->View.SaveWaveImage("/nowhere/picture.bmp");
    Parts->Editor->View.SaveWaveImage("/picture.bmp");
    const auto file = files.OpenForReading("/picture.bmp");
    ASSERT_TRUE(file);
    std::vector<std::byte> bytes(66 + 600 * 300 * 4);
    ASSERT_EQ(file->Length(), static_cast<std::int64_t>(bytes.size()));
    ASSERT_EQ(file->Read(0, bytes), bytes.size());
    const auto at = [&](std::size_t offset) {
        std::uint32_t value = 0;
        std::memcpy(&value, bytes.data() + offset, 4);
        return value;
    };
    EXPECT_EQ(at(0) & 0xFFFF, 0x4D42u);
    EXPECT_EQ(at(2), bytes.size());
    EXPECT_EQ(at(10), 66u);
    EXPECT_EQ(at(14), 40u);
    EXPECT_EQ(at(18), 600u);
    EXPECT_EQ(at(22), 300u);
    EXPECT_EQ(at(26), 32u << 16 | 1u);
    EXPECT_EQ(at(30), 3u) << "colours by masks";
    EXPECT_EQ(at(34), 600u * 300u * 4u);
    EXPECT_EQ(at(54), 0xFF0000u);
    EXPECT_EQ(at(66), image[299 * 600]) << "the last row first";
    EXPECT_EQ(at(66 + (299 * 600 + 40) * 4), image[40]);
}

TEST_F(PictureTest, ShowsTheSpectrum) {
    OpenFrames(Samples(546000, 0));
    Parts->Editor->View.SetTypeView(TypeViewConstants::SPECTRAL);
    // Silence has the first shade everywhere: hue 135, lightness 10, full saturation.
    const std::uint32_t silence = At(kLeft + 5, 20);
    EXPECT_NE(silence, 0u);
    EXPECT_EQ(RowsOf(kLeft + 300, silence), "12-268 ");
    Parts->Editor->Positions.SetSelected(1);
    Parts->Editor->Positions.SetEndSelect(273000);
    EXPECT_NE(At(kLeft + 100, 20), silence);
    // The scale of frequencies is narrower: 555 columns.
    EXPECT_NE(At(kLeft + 277, 20), silence);
    EXPECT_EQ(At(kLeft + 278, 20), silence) << "the end is left out";
}

}  // namespace
}  // namespace mavrin2::tests
