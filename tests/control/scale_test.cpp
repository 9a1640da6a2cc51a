#include "platform/font_object.h"
#include "tests/control/settings_test.h"

namespace mavrin2::tests {
namespace {

using automation::ComPtr;
using interfaces::IMavrin2Scale;
using objects::CMavrin2Scale;

using Getter = HRESULT (STDMETHODCALLTYPE IMavrin2Scale::*)(SHORT*);
using Putter = HRESULT (STDMETHODCALLTYPE IMavrin2Scale::*)(SHORT);

ComPtr<IDispatch> FontOf(std::int64_t points, const char* family = "Arial") {
    platform::FontDescription description;
    description.Family = family;
    description.Size = points * 10000;
    ComPtr<IDispatch> font;
    EXPECT_EQ(platform::NewFont(description, IID_IDispatch, font.PutVoid()), S_OK);
    return font;
}

class Scale : public SettingsTest {
protected:
    IMavrin2Scale& X() { return *Parts->ScaleX.Get(); }
    IMavrin2Scale& Y() { return *Parts->ScaleY.Get(); }

    static ComPtr<IDispatch> Font(IMavrin2Scale& scale) {
        ComPtr<IDispatch> font;
        EXPECT_EQ(scale.get_Font(font.Put()), S_OK);
        return font;
    }
    // The size of the font that the picture was last made with.
    std::int64_t LoadedPoints(bool x) {
        return Fonts->Loaded.at(Fonts->Loaded.size() - (x ? 2 : 1)).Size / 10000;
    }
};

TEST_F(Scale, BeginsWithItsDefaults) {
    for (IMavrin2Scale* scale : {&X(), &Y()}) {
        for (const Getter get : {&IMavrin2Scale::get_Type, &IMavrin2Scale::get_Visible,
                                 &IMavrin2Scale::get_Grid, &IMavrin2Scale::get_Orientation})
            EXPECT_EQ(Got(*scale, get), 1);
        // Windows reports the size of the nearest font that it has.
        const platform::FontDescription font = platform::DescriptionOf(Font(*scale).Get());
        EXPECT_EQ(font.Family, "Arial");
        EXPECT_EQ(platform::EmPixels(font), 11);
        EXPECT_EQ(font.Weight, 400);
        EXPECT_FALSE(font.Italic || font.Underline || font.Strikethrough);
        EXPECT_EQ(scale->get_Type(nullptr), E_POINTER);
        EXPECT_EQ(scale->get_Font(nullptr), E_POINTER);
    }
    EXPECT_NE(Font(X()).Get(), Font(Y()).Get()) << "each has its own";
}

TEST_F(Scale, LimitsWhatIsWrittenAndShowsItAtOnce) {
    OpenSamples(2);
    struct {
        bool OfTime;
        Getter Get;
        Putter Put;
        SHORT Value, Kept;
        bool Drawn = true;
    } const cases[] = {
        {true, &IMavrin2Scale::get_Type, &IMavrin2Scale::put_Type, 2, 2},
        {true, &IMavrin2Scale::get_Type, &IMavrin2Scale::put_Type, 2, 2, false},
        {true, &IMavrin2Scale::get_Type, &IMavrin2Scale::put_Type, 3, 2},
        {true, &IMavrin2Scale::get_Type, &IMavrin2Scale::put_Type, 0, 1},
        {false, &IMavrin2Scale::get_Type, &IMavrin2Scale::put_Type, 3, 3},
        {false, &IMavrin2Scale::get_Type, &IMavrin2Scale::put_Type, 7, 3},
        {true, &IMavrin2Scale::get_Grid, &IMavrin2Scale::put_Grid, 0, 0},
        {false, &IMavrin2Scale::get_Grid, &IMavrin2Scale::put_Grid, 0, 0},
        {false, &IMavrin2Scale::get_Orientation, &IMavrin2Scale::put_Orientation, 2, 2},
        {false, &IMavrin2Scale::get_Orientation, &IMavrin2Scale::put_Orientation, 9, 2},
        {false, &IMavrin2Scale::get_Orientation, &IMavrin2Scale::put_Orientation, -3, 1},
        {false, &IMavrin2Scale::get_Visible, &IMavrin2Scale::put_Visible, 0, 0},
        {true, &IMavrin2Scale::get_Visible, &IMavrin2Scale::put_Visible, 0, 0},
        {true, &IMavrin2Scale::get_Visible, &IMavrin2Scale::put_Visible, 5, 5},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        SCOPED_TRACE(i);
        const auto& c = cases[i];
        IMavrin2Scale& scale = c.OfTime ? X() : Y();
        const Image before = Shown();
        const SHORT old = Got(scale, c.Get);
        Redraws();
        EXPECT_EQ((scale.*c.Put)(c.Value), S_OK);
        EXPECT_EQ(Got(scale, c.Get), c.Kept);
        EXPECT_EQ(Redraws(), c.Drawn ? 1 : 0);
        const Image after = Shown();
        EXPECT_EQ(after == before, c.Kept == old);
        EXPECT_TRUE(IsAsMadeAnew());
    }
}

TEST_F(Scale, LimitsTheOtherOnesTypeToo) {
    // Put in without a follow-up.
    const auto other = CMavrin2Scale::Make();
    other->put_Type(9);
    EXPECT_EQ(Got<SHORT>(*other, &CMavrin2Scale::get_Type), 9) << "alone it is neither scale";
    other->put_Orientation(9);
    EXPECT_EQ(Got<SHORT>(*other, &CMavrin2Scale::get_Orientation), 2);
    Parts->Style.ScaleYObject = other.As<IMavrin2Scale>();
    X().put_Grid(0);
    EXPECT_EQ(Got<SHORT>(*other, &CMavrin2Scale::get_Type), 3);
    EXPECT_TRUE(IsAsMadeAnew());
}

TEST_F(Scale, MayBeAnObjectOfTheHosts) {
    Foreign<CMavrin2Scale> foreign;
    const auto scale = foreign.As<IMavrin2Scale>();
    scale->put_Type(9);
    scale->put_Visible(2);
    scale->put_Grid(3);
    scale->put_Orientation(2);
    scale->put_Font(FontOf(20).Get());
    Parts->Style.ScaleXObject = Parts->Style.ScaleYObject = scale;
    MadeAnew();
    EXPECT_EQ(Got(*scale.Get(), &IMavrin2Scale::get_Type), 2) << "three for levels, two for time";
    for (const view::ScaleSettings& seen : {Parts->Style.ScaleX(), Parts->Style.ScaleY()}) {
        EXPECT_EQ(seen.Type, 2);
        EXPECT_EQ(seen.Visible, 2);
        EXPECT_EQ(seen.Grid, 3);
        EXPECT_EQ(seen.Orientation, 2);
    }
    EXPECT_EQ(LoadedPoints(true), 20);
    EXPECT_EQ(LoadedPoints(false), 20);
    Parts->Style.Release();
}

TEST_F(Scale, TakesTheFontThatIsPut) {
    OpenSamples();
    for (const bool reference : {false, true}) {
        for (const bool ofTime : {false, true}) {
            IMavrin2Scale& scale = ofTime ? X() : Y();
            const auto font = FontOf(reference ? 11 : 20, "Courier New");
            const Image before = Shown();
            Redraws();
            EXPECT_EQ(reference ? scale.putref_Font(font.Get()) : scale.put_Font(font.Get()), S_OK);
            EXPECT_EQ(Font(scale).Get(), font.Get());
            EXPECT_EQ(LoadedPoints(ofTime), reference ? 11 : 20);
            EXPECT_EQ(Redraws(), 1);
            EXPECT_FALSE(Shown() == before) << "it needs more or less room";
            EXPECT_TRUE(IsAsMadeAnew());
        }
    }
    const auto kept = Font(X());
    EXPECT_EQ(X().put_Font(nullptr), S_OK);
    EXPECT_EQ(X().putref_Font(nullptr), S_OK);
    EXPECT_EQ(Font(X()).Get(), kept.Get());
}

TEST_F(Scale, IsKeptWithoutAControl) {
    const auto kept = Parts->ScaleX;
    Parts->Teardown();
    for (const auto& scale : {kept, CMavrin2Scale::Make()}) {
        EXPECT_EQ(scale->put_Type(3), S_OK);
        EXPECT_EQ(scale->put_Visible(0), S_OK);
        const auto font = FontOf(12);
        EXPECT_EQ(scale->put_Font(font.Get()), S_OK);
        EXPECT_EQ(Got<SHORT>(*scale, &CMavrin2Scale::get_Type), 3);
        EXPECT_EQ(Got<SHORT>(*scale, &CMavrin2Scale::get_Visible), 0);
        EXPECT_EQ(Font(*scale.Get()).Get(), font.Get());
    }
    EXPECT_EQ(Redraws(), 0);
}

}  // namespace
}  // namespace mavrin2::tests
