#include "platform/font_object.h"

#include <algorithm>
#include <limits>
#include <string>

#include "platform/ole_text.h"

namespace mavrin2::platform {
namespace {

using OleText = std::basic_string<OLECHAR>;

template <class Interface>
class Held {
public:
    Held(IUnknown& object, REFIID iid) {
        if (FAILED(object.QueryInterface(iid, reinterpret_cast<void**>(&interface_))))
            interface_ = nullptr;
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() {
        if (interface_ != nullptr) interface_->Release();
    }

    explicit operator bool() const { return interface_ != nullptr; }
    Interface* operator->() const { return interface_; }

private:
    Interface* interface_ = nullptr;
};

std::string TakeText(BSTR text) {
    std::string utf8 = text != nullptr ? Utf8Of({text, SysStringLen(text)}) : std::string();
    SysFreeString(text);
    return utf8;
}

SHORT Short(int value) {
    using Limits = std::numeric_limits<SHORT>;
    return static_cast<SHORT>(std::clamp<int>(value, Limits::min(), Limits::max()));
}

FontDescription ReadFont(const Held<IFont>& font) {
    FontDescription result;
    BSTR name = nullptr;
    if (SUCCEEDED(font->get_Name(&name))) result.Family = TakeText(name);
    CY size = {};
    if (SUCCEEDED(font->get_Size(&size))) result.Size = size.int64;
    SHORT number = 0;
    if (SUCCEEDED(font->get_Weight(&number))) result.Weight = number;
    if (SUCCEEDED(font->get_Charset(&number))) result.CharacterSet = number;
    BOOL flag = FALSE;
    if (SUCCEEDED(font->get_Italic(&flag))) result.Italic = flag != FALSE;
    if (SUCCEEDED(font->get_Underline(&flag))) result.Underline = flag != FALSE;
    if (SUCCEEDED(font->get_Strikethrough(&flag))) result.Strikethrough = flag != FALSE;
    return result;
}

// Reads members by their names; a value without a member stays as it is.
class MemberReader {
public:
    explicit MemberReader(const Held<IDispatch>& object) : object_(object) {}

    void Read(const char* name, std::string& text) const {
        Use(name, VT_BSTR, [&](VARIANT& value) {
            text = TakeText(value.bstrVal);
            value.vt = VT_EMPTY;
        });
    }
    void Read(const char* name, std::int64_t& amount) const {
        Use(name, VT_CY, [&](VARIANT& value) { amount = value.cyVal.int64; });
    }
    void Read(const char* name, int& number) const {
        Use(name, VT_I2, [&](VARIANT& value) { number = value.iVal; });
    }
    void Read(const char* name, bool& flag) const {
        Use(name, VT_BOOL, [&](VARIANT& value) { flag = value.boolVal != VARIANT_FALSE; });
    }

private:
    template <typename Taker>
    void Use(const char* name, VARTYPE type, const Taker& use) const {
        OleText text = OleTextOf(name);
        LPOLESTR names[] = {text.data()};
        DISPID id = DISPID_UNKNOWN;
        DISPPARAMS none = {};
        VARIANT value;
        VariantInit(&value);
        if (SUCCEEDED(object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id)) &&
            SUCCEEDED(object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                      &none, &value, nullptr, nullptr)) &&
            SUCCEEDED(VariantChangeType(&value, &value, 0, type)))
            use(value);
        VariantClear(&value);
    }

    const Held<IDispatch>& object_;
};

FontDescription ReadMembers(const Held<IDispatch>& object) {
    FontDescription result;
    const MemberReader members(object);
    bool bold = false;
    members.Read("Bold", bold);
    if (bold) result.Weight = 700;
    members.Read("Name", result.Family);
    members.Read("Size", result.Size);
    members.Read("Weight", result.Weight);
    members.Read("Charset", result.CharacterSet);
    members.Read("Italic", result.Italic);
    members.Read("Underline", result.Underline);
    members.Read("Strikethrough", result.Strikethrough);
    return result;
}

}  // namespace

FontDescription DescriptionOf(IUnknown* font) {
    if (font == nullptr) return {};
    if (const Held<IFont> own(*font, IID_IFont); own) return ReadFont(own);
    if (const Held<IDispatch> other(*font, IID_IDispatch); other) return ReadMembers(other);
    return {};
}

HRESULT NewFont(const FontDescription& description, REFIID iid, void** font) {
    OleText family = OleTextOf(description.Family);
    FONTDESC record = {};
    record.cbSizeofstruct = sizeof(record);
    record.lpstrName = family.data();
    record.cySize.int64 = description.Size;
    record.sWeight = Short(description.Weight);
    record.sCharset = Short(description.CharacterSet);
    record.fItalic = description.Italic ? TRUE : FALSE;
    record.fUnderline = description.Underline ? TRUE : FALSE;
    record.fStrikethrough = description.Strikethrough ? TRUE : FALSE;
    return OleCreateFontIndirect(&record, iid, font);
}

}  // namespace mavrin2::platform
