#include "platform/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ports.h"

namespace {

using mavrin2::platform::EmPixels;
using mavrin2::platform::Font;
using mavrin2::platform::FontDescription;
using mavrin2::platform::Pixels;
using mavrin2::platform::TextExtent;

constexpr std::uint32_t Paper = 0x204060;
constexpr std::uint32_t Ink = 0xFFC080;
constexpr std::uint32_t Fence = 0x12345678;

FontDescription Points(double size) {
    FontDescription description;
    description.Size = static_cast<std::int64_t>(size * 10000);
    return description;
}

// A sheet with a fence around it, which nothing may touch.
class Sheet {
public:
    Sheet(int width, int height)
        : width_(width), height_(height), bits_((width + 2) * (height + 2), Fence) {
        for (int y = 0; y < height; ++y)
            std::fill_n(&At(0, y), width, Paper);
    }

    Pixels Inside() { return {&At(0, 0), width_, height_, width_ + 2}; }
    std::uint32_t& At(int x, int y) { return bits_[(y + 1) * (width_ + 2) + x + 1]; }
    bool FenceStands() const {
        return std::count(bits_.begin(), bits_.end(), Fence) == 2 * (width_ + 2) + 2 * height_;
    }
    // Pixels from `left` to `right` and `top` to `bottom`, both without it, that are no longer
    // paper.
    int Drawn(int left, int top, int right, int bottom) {
        int count = 0;
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x)
                count += At(x, y) != Paper ? 1 : 0;
        return count;
    }
    int Drawn() { return Drawn(0, 0, width_, height_); }

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> bits_;
};

std::shared_ptr<const Font> Loaded(const FontDescription& description) {
    static const auto fonts = mavrin2::platform::SystemPorts().Fonts;
    return fonts->Load(description);
}

TEST(Text, HasTheSameExtentOnEverySystem) {
    struct Case {
        double Size;
        int Weight;
        int Height;
        std::vector<int> Widths;
    };
    const std::string_view labels[] = {"111", "1000", "norm", "32768",     "44100",   "smpl", "hms",
                                       "dB",  "Hz",   "0",    "1:23.4567", "0:00.00", "-90"};
    const Case cases[] = {
        {8, 400, 12, {18, 24, 25, 30, 30, 23, 21, 13, 14, 6, 48, 36, 16}},
        {8, 700, 12, {18, 24, 28, 30, 30, 26, 23, 15, 14, 6, 49, 37, 16}},
        {10, 400, 15, {21, 28, 29, 35, 35, 28, 25, 16, 16, 7, 57, 43, 18}},
        {14, 400, 21, {33, 44, 44, 55, 55, 41, 37, 24, 24, 11, 87, 65, 28}},
        {200, 400, 299, {447, 596, 609, 745, 745, 564, 505, 327, 327, 149, 1191, 893, 387}},
    };
    for (const Case& expected : cases) {
        FontDescription description = Points(expected.Size);
        description.Weight = expected.Weight;
        const auto font = Loaded(description);
        for (std::size_t i = 0; i < std::size(labels); ++i) {
            const TextExtent extent = font->Measure(labels[i]);
            EXPECT_EQ(extent.Width, expected.Widths[i])
                << labels[i] << ", " << expected.Size << " points, weight " << expected.Weight;
            EXPECT_EQ(extent.Height, expected.Height) << expected.Size << " points";
        }
        EXPECT_EQ(font->Measure("").Width, 0);
        EXPECT_EQ(font->Measure("").Height, expected.Height);
    }
}

TEST(Text, OfAnySizeAndFamilyHasAFont) {
    EXPECT_EQ(EmPixels(Points(8)), 11);
    EXPECT_EQ(EmPixels(Points(8.25)), 11);
    EXPECT_EQ(EmPixels(Points(9)), 12);
    EXPECT_EQ(EmPixels(Points(200)), 267);
    EXPECT_EQ(EmPixels(Points(0)), 1);
    EXPECT_EQ(EmPixels(Points(-8)), 1);
    FontDescription huge;
    huge.Size = INT64_MAX;
    EXPECT_EQ(EmPixels(huge), 2000);

    FontDescription unknown;
    for (const char* family : {"No Family Of This Name", "", "\xFF\xFE", "Ünbekannt"}) {
        unknown.Family = family;
        EXPECT_EQ(Loaded(unknown)->Measure("0:00.00").Width, 36) << family;
    }
    for (const double size : {-1.0, 0.0, 0.1, 1e9})
        EXPECT_GT(Loaded(Points(size))->Measure("1000").Width, 0) << size;
}

TEST(Text, IsUtf8) {
    const auto font = Loaded(Points(8));
    const int letter = font->Measure("a").Width;
    EXPECT_EQ(font->Measure("\xC3\xA4").Width, letter);  // with dots
    EXPECT_EQ(font->Measure("a\xCE\x94\x61").Width, 2 * letter + font->Measure("\xCE\x94").Width);
    Sheet sheet(60, 20);
    font->Draw(sheet.Inside(), 0, 0, "\xFF\xC3 \xF0\x9F\x98\x80 \xE4\xBD\xA0\xE2", Ink);
    EXPECT_TRUE(sheet.FenceStands());
}

TEST(Text, IsDrawnIntoItsCell) {
    for (const double size : {8.0, 14.0}) {
        const auto font = Loaded(Points(size));
        const TextExtent extent = font->Measure("1000");
        Sheet sheet(extent.Width + 20, extent.Height + 20);
        font->Draw(sheet.Inside(), 10, 10, "1000", Ink);
        const int inside = sheet.Drawn(10, 10, 10 + extent.Width, 10 + extent.Height);
        EXPECT_GT(inside, extent.Width);
        EXPECT_EQ(sheet.Drawn(), inside) << size;
        // Strokes have the whole colour; everything else is between it and the paper.
        int strokes = 0;
        for (int y = 10; y < 10 + extent.Height; ++y) {
            for (int x = 10; x < 10 + extent.Width; ++x) {
                const std::uint32_t pixel = sheet.At(x, y);
                strokes += pixel == Ink ? 1 : 0;
                for (const int shift : {0, 8, 16}) {
                    const auto part = [&](std::uint32_t color) { return color >> shift & 0xFF; };
                    EXPECT_GE(part(pixel), part(Paper));
                    EXPECT_LE(part(pixel), part(Ink));
                }
            }
        }
        EXPECT_GE(strokes, extent.Height) << size;
    }
}

TEST(Text, IsCutOffAtTheEdgesOfThePixels) {
    const auto font = Loaded(Points(14));
    const TextExtent extent = font->Measure("808");
    Sheet whole(extent.Width + 20, extent.Height + 20);
    font->Draw(whole.Inside(), 10, 10, "808", Ink);
    const int far = 1 << 30;
    const std::pair<int, int> places[] = {{-7, 0},
                                          {0, -9},
                                          {extent.Width - 6, 3},
                                          {2, extent.Height - 5},
                                          {-5, -5},
                                          {-far, 0},
                                          {far, 0},
                                          {0, far},
                                          {0, -far},
                                          {-extent.Width, 0}};
    for (const auto& [x, y] : places) {
        Sheet sheet(extent.Width, extent.Height);
        font->Draw(sheet.Inside(), x, y, "808", Ink);
        EXPECT_TRUE(sheet.FenceStands()) << x << ", " << y;
        for (int row = 0; row < extent.Height; ++row) {
            for (int column = 0; column < extent.Width; ++column) {
                const std::int64_t left = std::int64_t{column} - x;
                const std::int64_t top = std::int64_t{row} - y;
                const bool inCell =
                    left >= 0 && left < extent.Width && top >= 0 && top < extent.Height;
                const std::uint32_t expected =
                    inCell ? whole.At(static_cast<int>(left) + 10, static_cast<int>(top) + 10)
                           : Paper;
                ASSERT_EQ(sheet.At(column, row), expected)
                    << column << ", " << row << " of the text at " << x << ", " << y;
            }
        }
    }
    Sheet nothing(1, 1);
    Pixels empty = nothing.Inside();
    empty.Width = empty.Height = 0;
    font->Draw(empty, 0, 0, "808", Ink);
    EXPECT_EQ(nothing.Drawn(), 0);
}

TEST(Text, LooksAsDescribed) {
    const auto drawn = [](const FontDescription& description, std::string_view text) {
        Sheet sheet(100, 40);
        Loaded(description)->Draw(sheet.Inside(), 10, 5, text, Ink);
        return sheet;
    };
    const FontDescription plain = Points(14);
    const auto with = [&](auto change) {
        FontDescription description = plain;
        change(description);
        return description;
    };
    const int heavy = drawn(with([](auto& d) { d.Weight = 700; }), "lll").Drawn();
    EXPECT_GT(heavy, drawn(plain, "lll").Drawn() * 5 / 4);

    // A slanted stroke takes more columns than an upright one.
    const auto columns = [](Sheet sheet) {
        int count = 0;
        for (int x = 0; x < 100; ++x)
            count += sheet.Drawn(x, 0, x + 1, 40) > 0 ? 1 : 0;
        return count;
    };
    EXPECT_GT(columns(drawn(with([](auto& d) { d.Italic = true; }), "l")),
              columns(drawn(plain, "l")));

    // Lines are as long as the text, blanks among it: one below the letters, one through them.
    const int width = Loaded(plain)->Measure("    ").Width;
    const auto lineAt = [&](Sheet sheet) {
        for (int y = 0; y < 40; ++y)
            if (sheet.Drawn(10, y, 10 + width, y + 1) == width) return y - 5;
        return -1;
    };
    const int below = lineAt(drawn(with([](auto& d) { d.Underline = true; }), "    "));
    const int through = lineAt(drawn(with([](auto& d) { d.Strikethrough = true; }), "    "));
    EXPECT_EQ(lineAt(drawn(plain, "    ")), -1);
    EXPECT_GT(below, 16);
    EXPECT_GT(through, 8);
    EXPECT_LT(through, 16);
}

TEST(Text, ComesFromAFontThatIsKept) {
    FontDescription description = Points(11);
    const auto first = Loaded(description);
    EXPECT_EQ(Loaded(description), first);
    description.Italic = true;
    EXPECT_NE(Loaded(description), first);
    // Many others later it may be another object, and measures the same.
    for (int size = 12; size < 40; ++size)
        EXPECT_GT(Loaded(Points(size))->Measure("0").Width, 0);
    EXPECT_EQ(Loaded(Points(11))->Measure("44100").Width, first->Measure("44100").Width);
}

}  // namespace
