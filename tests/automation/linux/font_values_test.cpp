#include <gtest/gtest.h>

#include "automation/com_ptr.h"
#include "automation/text.h"
#include "platform/font_object.h"

namespace mavrin2::automation {
namespace {

using platform::DescriptionOf;
using platform::FontDescription;
using platform::NewFont;

// The object uses no font of the system here, so that it keeps every value as it is given.
TEST(FontValues, AreKeptAsTheyAreGiven) {
    const FontDescription cases[] = {
        {.Family = "\xC3\x9C"
                   "nbekannt \xF0\x9F\x98\x80",
         .Size = 80001,
         .CharacterSet = 0},
        {.Family = "", .Size = 105000, .Weight = 1, .CharacterSet = 2},
        {.Size = INT64_MAX, .Weight = 32767, .CharacterSet = -32768},
        {.Size = -1, .Weight = -32768},
    };
    for (const FontDescription& description : cases) {
        ComPtr<IFont> font;
        ComPtr<IFont> copy;
        ASSERT_EQ(NewFont(description, IID_IFont, font.PutVoid()), S_OK);
        EXPECT_EQ(DescriptionOf(font.Get()), description) << description.Family;
        ASSERT_EQ(font->Clone(copy.Put()), S_OK);
        EXPECT_EQ(font->IsEqual(copy.Get()), S_OK) << description.Family;
    }
    FontDescription beyond;
    beyond.Weight = 1 << 20;
    ComPtr<IFont> font;
    ASSERT_EQ(NewFont(beyond, IID_IFont, font.PutVoid()), S_OK);
    EXPECT_EQ(DescriptionOf(font.Get()).Weight, 32767);
}

TEST(FontValues, OfTwoFontsAreCompared) {
    ComPtr<IFont> one;
    ASSERT_EQ(NewFont({}, IID_IFont, one.PutVoid()), S_OK);
    const FontDescription others[] = {
        {.Family = "Arial Black"}, {.Size = 80001},     {.Weight = 401},        {.CharacterSet = 0},
        {.Italic = true},          {.Underline = true}, {.Strikethrough = true}};
    for (const FontDescription& description : others) {
        ComPtr<IFont> other;
        ASSERT_EQ(NewFont(description, IID_IFont, other.PutVoid()), S_OK);
        EXPECT_EQ(one->IsEqual(other.Get()), S_FALSE);
    }
    ComPtr<IFont> same;
    ASSERT_EQ(NewFont({.Family = "ARIAL"}, IID_IFont, same.PutVoid()), S_OK);
    EXPECT_EQ(one->IsEqual(same.Get()), S_OK);
    // Truth has many numbers.
    EXPECT_EQ(one->put_Italic(TRUE), S_OK);
    EXPECT_EQ(same->put_Italic(-1), S_OK);
    EXPECT_EQ(one->IsEqual(same.Get()), S_OK);
    EXPECT_EQ(one->IsEqual(nullptr), E_POINTER);
}

TEST(FontValues, AreCalledAsEveryMemberIs) {
    ComPtr<IDispatch> font;
    ASSERT_EQ(NewFont({}, IID_IDispatch, font.PutVoid()), S_OK);
    VARIANT values[2] = {};
    DISPID put = DISPID_PROPERTYPUT;
    const auto call = [&](DISPID id, int flags, UINT count, VARIANT* result, UINT* bad = nullptr) {
        DISPPARAMS params = {values, &put, count, flags == DISPATCH_PROPERTYPUT ? 1u : 0u};
        return font->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(flags), &params,
                            result, nullptr, bad);
    };
    VARIANT result;
    VariantInit(&result);
    UINT bad = 7;
    values[0].vt = VT_I4;
    values[0].lVal = 40000;
    EXPECT_EQ(call(DISPID_FONT_WEIGHT, DISPATCH_PROPERTYPUT, 1, nullptr, &bad), DISP_E_OVERFLOW);
    EXPECT_EQ(bad, 0u);
    EXPECT_EQ(call(DISPID_FONT_WEIGHT, DISPATCH_PROPERTYPUT, 2, nullptr), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(DISPID_FONT_WEIGHT, DISPATCH_PROPERTYGET, 1, &result), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(DISPID_FONT_WEIGHT, DISPATCH_PROPERTYPUTREF, 1, nullptr), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(call(DISPID_FONT_WEIGHT, DISPATCH_PROPERTYGET, 0, nullptr), S_OK);
    put = DISPID_FONT_WEIGHT;
    EXPECT_EQ(call(DISPID_FONT_WEIGHT, DISPATCH_PROPERTYPUT, 1, nullptr), DISP_E_NONAMEDARGS);
    EXPECT_EQ(call(DISPID_FONT_SIZE, DISPATCH_PROPERTYGET, 0, &result), S_OK);
    EXPECT_EQ(result.vt, VT_CY);
    EXPECT_EQ(result.cyVal.int64, 80000);
    EXPECT_EQ(call(DISPID_VALUE, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 0, &result), S_OK);
    EXPECT_EQ(Bstr::View(result.bstrVal), OLESTR("Arial"));
    VariantClear(&result);
    UINT count = 7;
    EXPECT_EQ(font->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 0u);
}

}  // namespace
}  // namespace mavrin2::automation
