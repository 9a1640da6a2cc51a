#include <array>
#include <bit>

#include "control/view/hls.h"
#include "tests/control/settings_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2Colors;
using interfaces::TypeViewConstants;
using objects::CMavrin2Colors;

enum class FollowUp { RebuildPens, RenderBackground, Redraw };

struct ColorProperty {
    const char* Name;
    HRESULT (STDMETHODCALLTYPE IMavrin2Colors::*Get)(OLE_COLOR*);
    HRESULT (STDMETHODCALLTYPE IMavrin2Colors::*Put)(OLE_COLOR);
    OLE_COLOR AtFirst;
    FollowUp After;
    bool Seen = true;  // in a picture of a sound with a selection
};

#define COLOR(name, ...) \
    { #name, &IMavrin2Colors::get_##name, &IMavrin2Colors::put_##name, __VA_ARGS__ }

constexpr ColorProperty kColors[] = {
    COLOR(Font, 0x000000, FollowUp::RebuildPens),
    COLOR(SelectDigitalWaveform, 0x604720, FollowUp::RebuildPens),
    COLOR(SelectCenterLine, 0x2626A4, FollowUp::RebuildPens),
    COLOR(SelectBackground, 0xFFFFFF, FollowUp::RenderBackground),
    COLOR(SelectAnalogWaveform, 0xAC0000, FollowUp::RebuildPens),
    COLOR(Scales, 0xC8D0D4, FollowUp::RebuildPens),
    COLOR(PlayCursor, 0xDCDCDC, FollowUp::Redraw, false),
    COLOR(Grid, 0x4F2C04, FollowUp::RebuildPens),
    COLOR(DigitalWaveform, 0xABF01C, FollowUp::RebuildPens),
    COLOR(Cursor, 0x00FFFF, FollowUp::Redraw),
    COLOR(CenterLine, 0x2626A4, FollowUp::RebuildPens),
    COLOR(Boundary, 0x9F876F, FollowUp::Redraw),
    COLOR(Background, 0x000000, FollowUp::RebuildPens),
    COLOR(AnalogWaveform, 0x567E00, FollowUp::RebuildPens),
    COLOR(CueMarker, 0x7D7DFF, FollowUp::Redraw, false),
    COLOR(RangeMarker, 0xFFBC24, FollowUp::Redraw, false),
    COLOR(RangeMarkerBackground, 0x414141, FollowUp::RenderBackground, false),
};

struct SpectralProperty {
    HRESULT (STDMETHODCALLTYPE IMavrin2Colors::*Get)(LONG*);
    HRESULT (STDMETHODCALLTYPE IMavrin2Colors::*Put)(LONG);
    LONG AtFirst;
};

constexpr SpectralProperty kSpectral[] = {
    {&IMavrin2Colors::get_SpectralLow, &IMavrin2Colors::put_SpectralLow, 35},
    {&IMavrin2Colors::get_SpectralHigh, &IMavrin2Colors::put_SpectralHigh, 135},
    {&IMavrin2Colors::get_SpectralSelectLow, &IMavrin2Colors::put_SpectralSelectLow, 100},
    {&IMavrin2Colors::get_SpectralSelectHigh, &IMavrin2Colors::put_SpectralSelectHigh, 200},
};

// Nothing else has these.
constexpr OLE_COLOR kStrange = 0x1357F9;
constexpr OLE_COLOR kStrangeGrid = 0x2468FA;

class Colors : public SettingsTest {
protected:
    IMavrin2Colors& Object() { return *Parts->Colors.Get(); }

    // What a follow-up takes over of the colours that the host sees: those of another object have
    // come into their place without one.
    FollowUp AfterPut(const ColorProperty& property) {
        const auto own = Parts->Style.ColorsObject;
        const auto other = CMavrin2Colors::Make(0xC8D0D4u);
        other->put_Background(kStrange);
        other->put_Grid(kStrangeGrid);
        Parts->Style.ColorsObject = other.As<IMavrin2Colors>();
        (Object().*property.Put)(property.AtFirst);
        const Image image = Shown();
        Parts->Style.ColorsObject = own;
        Parts->Editor->View.RebuildPens();
        if (Has(image, kStrangeGrid)) return FollowUp::RebuildPens;
        return Has(image, kStrange) ? FollowUp::RenderBackground : FollowUp::Redraw;
    }
};

TEST_F(Colors, AreKeptAsGivenAndDrawnAtOnce) {
    OpenSamples();
    for (const ColorProperty& property : kColors) {
        SCOPED_TRACE(property.Name);
        EXPECT_EQ(Got(Object(), property.Get), property.AtFirst);
        Redraws();
        EXPECT_EQ((Object().*property.Put)(kStrange), S_OK);
        EXPECT_EQ(Got(Object(), property.Get), kStrange);
        EXPECT_EQ(Redraws(), 1);
        const Image image = Shown();
        EXPECT_EQ(Has(image, kStrange), property.Seen);
        EXPECT_TRUE(IsAsMadeAnew());
        (Object().*property.Put)(0x80000012);
        EXPECT_EQ(Got(Object(), property.Get), 0x80000012) << "whatever it means";
        (Object().*property.Put)(property.AtFirst);
        EXPECT_EQ((Object().*property.Get)(nullptr), E_POINTER);
    }
}

TEST_F(Colors, AreTakenOverAsFarAsEachOfThemNeeds) {
    OpenSamples();
    for (const ColorProperty& property : kColors)
        EXPECT_EQ(AfterPut(property), property.After) << property.Name;
}

TEST_F(Colors, OfTheSpectralPictureWaitForTheNextOne) {
    OpenSamples(2);
    Parts->Editor->View.SetTypeView(TypeViewConstants::SPECTRAL);
    for (const auto& [get, put, atFirst] : kSpectral) {
        EXPECT_EQ(Got(Object(), get), atFirst);
        const Image before = Shown();
        Redraws();
        EXPECT_EQ((Object().*put)(-77), S_OK);
        EXPECT_EQ(Got(Object(), get), -77);
        EXPECT_EQ(Redraws(), 1);
        EXPECT_TRUE(Shown() == before) << atFirst;
        EXPECT_FALSE(MadeAnew() == before) << atFirst;
    }
}

TEST_F(Colors, HaveDarkerShadesForTheSelectionInTheOverview) {
    OpenSamples();
    Parts->Editor->Zooming.ZoomTo(30, 60);
    EXPECT_TRUE(Has(Shown(), 0x77AB0C));
    EXPECT_TRUE(Has(Shown(), 0x94D30E));
    Object().put_DigitalWaveform(0xABF01C);
    EXPECT_FALSE(Has(Shown(), 0x77AB0C)) << "what is computed is not what there was at first";
    EXPECT_TRUE(Has(Shown(), 0x547507));
    EXPECT_TRUE(Has(Shown(), 0x83B80D));
}

TEST_F(Colors, MayBeThoseOfAnObjectOfTheHosts) {
    OpenSamples();
    Foreign<CMavrin2Colors> foreign(0xC8D0D4u);
    const auto colors = foreign.As<IMavrin2Colors>();
    std::uint32_t value = 0x0A0B00;
    for (const ColorProperty& property : kColors) {
        (Object().*property.Put)(++value);
        (colors.Get()->*property.Put)(value);
    }
    for (const SpectralProperty& property : kSpectral) {
        (Object().*property.Put)(static_cast<LONG>(++value));
        (colors.Get()->*property.Put)(static_cast<LONG>(value));
    }
    using Values = std::array<std::uint32_t, sizeof(view::ColorSettings) / sizeof(std::uint32_t)>;
    const auto own = std::bit_cast<Values>(Parts->Style.Colors());
    Parts->Style.ColorsObject = colors;
    EXPECT_EQ(std::bit_cast<Values>(Parts->Style.Colors()), own) << "with the same shades";
    EXPECT_TRUE(IsAsMadeAnew());
    Parts->Style.ColorsObject.Reset();
    EXPECT_TRUE(Has(MadeAnew(), 0xABF01C)) << "as at first, without colours";
}

TEST_F(Colors, AreKeptWithoutAControl) {
    const auto alone = CMavrin2Colors::Make(0x112233u);
    EXPECT_EQ(Got<OLE_COLOR>(*alone, &CMavrin2Colors::get_Scales), 0x112233u);
    const auto kept = Parts->Colors;
    Parts->Teardown();
    for (IMavrin2Colors* object :
         {static_cast<IMavrin2Colors*>(alone.Get()), static_cast<IMavrin2Colors*>(kept.Get())}) {
        EXPECT_EQ(object->put_DigitalWaveform(kStrange), S_OK);
        EXPECT_EQ(Got(*object, &IMavrin2Colors::get_DigitalWaveform), kStrange);
    }
    EXPECT_EQ(Redraws(), 0);
}

TEST(Hls, IsAnotherWayToTellAColour) {
    struct {
        std::uint32_t Color;
        view::HlsColor Hls;
    } const cases[] = {{0xABF01C, {62, 74, 123}}, {0x0000FF, {0, 70, 140}},
                       {0x00FF00, {46, 70, 140}}, {0xFF0000, {93, 70, 140}},
                       {0x000000, {93, 0, 0}},    {0xFFFFFF, {93, 140, 0}},
                       {0x808080, {93, 70, 0}},   {0x2F00FF, {136, 70, 140}}};
    for (const auto& [color, expected] : cases) {
        const view::HlsColor hls = view::ToHls(color);
        EXPECT_EQ(hls.Hue, expected.Hue) << std::hex << color;
        EXPECT_EQ(hls.Lightness, expected.Lightness) << std::hex << color;
        EXPECT_EQ(hls.Saturation, expected.Saturation) << std::hex << color;
    }
}

TEST(Hls, GivesTheColourBackToWithinItsSteps) {
    int furthest = 0;
    for (std::uint32_t i = 0; i < 4096; ++i) {
        const std::uint32_t color = (i & 0xF) * 17 | (i >> 4 & 0xF) * 17 << 8 | (i >> 8) * 17 << 16;
        const std::uint32_t back = view::FromHls(view::ToHls(color));
        for (int shift = 0; shift < 24; shift += 8) {
            const int part = static_cast<int>(color >> shift & 0xFF);
            const int got = static_cast<int>(back >> shift & 0xFF);
            furthest = std::max(furthest, std::abs(part - got));
        }
    }
    EXPECT_LE(furthest, 17) << "a step of 140 in hue is a 23rd of a component";
}

TEST(Hls, GoesNoFurtherThanBlack) {
    EXPECT_EQ(view::Darker(0xABF01C, 40), 0x547507u);
    EXPECT_EQ(view::Darker(0xABF01C, 20), 0x83B80Du);
    for (const std::uint32_t dark : {0x000000u, 0x202020u, 0x300000u})
        EXPECT_EQ(view::Darker(dark, 40), 0x000000u) << std::hex << dark;
}

}  // namespace
}  // namespace mavrin2::tests
