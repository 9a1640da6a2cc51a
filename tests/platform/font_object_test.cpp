#include "platform/font_object.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/ole_text.h"

namespace {

using mavrin2::platform::DescriptionOf;
using mavrin2::platform::EmPixels;
using mavrin2::platform::FontDescription;
using mavrin2::platform::NewFont;
using mavrin2::platform::OleTextOf;

// One reference, given back at the end.
template <class Interface>
struct Owned {
    Owned() = default;
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() {
        if (Object) Object->Release();
    }
    void** Put() { return reinterpret_cast<void**>(&Object); }
    Interface* operator->() const { return Object; }

    Interface* Object = nullptr;
};

VARIANT Of(double value) {
    VARIANT variant;
    variant.vt = VT_R8;
    variant.dblVal = value;
    return variant;
}
VARIANT Of(bool value) {
    VARIANT variant;
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}
VARIANT Of(const char* utf8) {
    VARIANT variant;
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocString(OleTextOf(utf8).c_str());
    return variant;
}

DISPID IdOf(IDispatch& object, const char* name, HRESULT expected = S_OK) {
    auto text = OleTextOf(name);
    LPOLESTR names[] = {text.data()};
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), expected) << name;
    return id;
}

HRESULT Put(IDispatch& object, const char* name, VARIANT value) {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS params = {&value, &put, 1, 1};
    const HRESULT status = object.Invoke(IdOf(object, name), IID_NULL, LOCALE_USER_DEFAULT,
                                         DISPATCH_PROPERTYPUT, &params, nullptr, nullptr, nullptr);
    VariantClear(&value);
    return status;
}

// As a script sees it: as text.
std::string Get(IDispatch& object, const char* name) {
    DISPPARAMS none = {};
    VARIANT value;
    VariantInit(&value);
    EXPECT_EQ(
        object.Invoke(IdOf(object, name), IID_NULL, LOCALE_USER_DEFAULT,
                      DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none, &value, nullptr, nullptr),
        S_OK)
        << name;
    EXPECT_EQ(VariantChangeType(&value, &value, VARIANT_ALPHABOOL, VT_BSTR), S_OK) << name;
    const std::string text =
        mavrin2::platform::Utf8Of({value.bstrVal, SysStringLen(value.bstrVal)});
    VariantClear(&value);
    return text;
}

// What a system may not change. One that looks for the font at once reports the size that the
// pixels really have, and the characters of the font that it found.
FontDescription AsDrawn(FontDescription description) {
    description.Size = EmPixels(description);
    description.CharacterSet = 0;
    return description;
}

void ExpectDrawnAs(IUnknown* font, const FontDescription& expected) {
    const FontDescription drawn = AsDrawn(DescriptionOf(font));
    EXPECT_EQ(drawn.Family, expected.Family);
    EXPECT_EQ(drawn.Size, EmPixels(expected)) << expected.Size;
    EXPECT_EQ(drawn, AsDrawn(expected));
}

TEST(FontObject, KeepsItsDescription) {
    const FontDescription cases[] = {
        {},
        {.Family = "Liberation Sans", .Size = 140000, .Weight = 700, .Italic = true},
        {.Size = 100000, .Underline = true},
        {.Weight = 900, .Strikethrough = true},
    };
    for (const FontDescription& description : cases) {
        Owned<IDispatch> font;
        ASSERT_EQ(NewFont(description, IID_IDispatch, font.Put()), S_OK);
        ExpectDrawnAs(font.Object, description);
    }
    EXPECT_EQ(DescriptionOf(nullptr), FontDescription());
}

TEST(FontObject, IsSetByTheNamesOfItsMembers) {
    Owned<IDispatch> font;
    ASSERT_EQ(NewFont({}, IID_IFontDisp, font.Put()), S_OK);
    EXPECT_EQ(Get(*font.Object, "name"), "Arial");
    EXPECT_EQ(Get(*font.Object, "Bold"), "False");
    EXPECT_EQ(Get(*font.Object, "Weight"), "400");

    EXPECT_EQ(Put(*font.Object, "nAmE", Of("Liberation Sans")), S_OK);
    EXPECT_EQ(Put(*font.Object, "SIZE", Of("14")), S_OK);
    EXPECT_EQ(Put(*font.Object, "Charset", Of("2")), S_OK);
    EXPECT_EQ(Put(*font.Object, "Italic", Of(1.0)), S_OK);
    EXPECT_EQ(Put(*font.Object, "Underline", Of(true)), S_OK);
    EXPECT_EQ(Put(*font.Object, "Strikethrough", Of("True")), S_OK);
    ExpectDrawnAs(font.Object, {"Liberation Sans", 140000, 400, 2, true, true, true});
    EXPECT_EQ(Put(*font.Object, "Size", Of(10.0)), S_OK);
    EXPECT_EQ(EmPixels(DescriptionOf(font.Object)), 13);

    // Bold is a weight seen from afar.
    EXPECT_EQ(Put(*font.Object, "Bold", Of(true)), S_OK);
    EXPECT_EQ(Get(*font.Object, "Weight"), "700");
    EXPECT_EQ(Put(*font.Object, "Weight", Of(300.0)), S_OK);
    EXPECT_EQ(Get(*font.Object, "Bold"), "False");
    EXPECT_EQ(Put(*font.Object, "Weight", Of(800.0)), S_OK);
    EXPECT_EQ(Get(*font.Object, "Bold"), "True");
    EXPECT_EQ(Put(*font.Object, "Bold", Of(false)), S_OK);
    EXPECT_EQ(Get(*font.Object, "Weight"), "400");
}

TEST(FontObject, RefusesWhatItCannotBe) {
    Owned<IDispatch> font;
    ASSERT_EQ(NewFont({}, IID_IDispatch, font.Put()), S_OK);
    EXPECT_EQ(Put(*font.Object, "Size", Of("large")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Put(*font.Object, "Weight", Of(1e6)), DISP_E_OVERFLOW);
    IdOf(*font.Object, "Color", DISP_E_UNKNOWNNAME);
    DISPPARAMS none = {};
    VARIANT value;
    VariantInit(&value);
    EXPECT_EQ(font->Invoke(77, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value,
                           nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    ExpectDrawnAs(font.Object, {});

    Owned<IDispatch> nothing;
    EXPECT_EQ(NewFont({}, IID_IErrorInfo, nothing.Put()), E_NOINTERFACE);
    EXPECT_EQ(nothing.Object, nullptr);
}

TEST(FontObject, IsCopied) {
    const FontDescription bold = {.Size = 100000, .Weight = 700, .Underline = true};
    Owned<IFont> font, copy;
    ASSERT_EQ(NewFont(bold, IID_IFont, font.Put()), S_OK);
    ASSERT_EQ(font->Clone(&copy.Object), S_OK);
    ExpectDrawnAs(copy.Object, bold);
    EXPECT_EQ(copy->put_Underline(FALSE), S_OK);
    EXPECT_EQ(font->IsEqual(copy.Object), S_FALSE);
    ExpectDrawnAs(font.Object, bold);
}

// A host's own object: some members of a font, and no interface of one.
class HalfAFont final : public IDispatch {
public:
    explicit HalfAFont(IDispatch& font) : font_(font) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object =
            IsEqualGUID(iid, IID_IUnknown) || IsEqualGUID(iid, IID_IDispatch) ? this : nullptr;
        if (*object) AddRef();
        return *object ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++References; }
    STDMETHODIMP_(ULONG) Release() override { return --References; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID lcid,
                               DISPID* ids) override {
        const std::basic_string_view<OLECHAR> name = names[0];
        if (name == OLESTR("Name") || name == OLESTR("Charset")) return DISP_E_UNKNOWNNAME;
        return font_.GetIDsOfNames(iid, names, count, lcid, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* params,
                        VARIANT* result, EXCEPINFO* exception, UINT* bad) override {
        return font_.Invoke(id, iid, lcid, flags, params, result, exception, bad);
    }

    ULONG References = 1;

private:
    IDispatch& font_;
};

TEST(FontObject, MayBeAnyObjectWithTheMembersOfOne) {
    Owned<IDispatch> font;
    const FontDescription given = {"Liberation Sans", 140000, 800, 2, true, false, true};
    ASSERT_EQ(NewFont(given, IID_IDispatch, font.Put()), S_OK);
    HalfAFont half(*font.Object);
    FontDescription expected = given;
    expected.Family = "Arial";
    ExpectDrawnAs(&half, expected);
    EXPECT_EQ(DescriptionOf(&half).CharacterSet, 1) << "the object has no such member";
    EXPECT_EQ(half.References, 1u);
}

}  // namespace
