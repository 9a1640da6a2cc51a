#include "platform/linux/automation/fonts.h"

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "platform/linux/automation/counted.h"

const IID IID_IFont = {
    0xBEF6E002, 0xA874, 0x101A, {0x8B, 0xBA, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};
const IID IID_IFontDisp = {
    0xBEF6E003, 0xA874, 0x101A, {0x8B, 0xBA, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};

namespace {

using mavrin2::platform::automation::Counted;

constexpr SHORT NormalWeight = 400;
constexpr SHORT BoldWeight = 700;
constexpr SHORT LightestBoldWeight = 551;

struct FontValues {
    std::u16string Name = u"Arial";
    CY Size = {.int64 = 80000};
    SHORT Weight = NormalWeight;
    SHORT Charset = 1;
    BOOL Italic = FALSE;
    BOOL Underline = FALSE;
    BOOL Strikethrough = FALSE;
};

bool IsBold(SHORT weight) {
    return weight >= LightestBoldWeight;
}

struct Member {
    std::u16string_view Name;
    DISPID Id;
    VARTYPE Type;
};
constexpr Member Members[] = {
    {u"Name", DISPID_FONT_NAME, VT_BSTR},       {u"Size", DISPID_FONT_SIZE, VT_CY},
    {u"Bold", DISPID_FONT_BOLD, VT_BOOL},       {u"Italic", DISPID_FONT_ITALIC, VT_BOOL},
    {u"Underline", DISPID_FONT_UNDER, VT_BOOL}, {u"Strikethrough", DISPID_FONT_STRIKE, VT_BOOL},
    {u"Weight", DISPID_FONT_WEIGHT, VT_I2},     {u"Charset", DISPID_FONT_CHARSET, VT_I2},
};

bool EqualNames(std::u16string_view one, std::u16string_view other) {
    const auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? c + 32 : c + 0; };
    if (one.size() != other.size()) return false;
    for (std::size_t i = 0; i < one.size(); ++i)
        if (lower(one[i]) != lower(other[i])) return false;
    return true;
}

VARIANT_BOOL Truth(BOOL value) {
    return value != FALSE ? VARIANT_TRUE : VARIANT_FALSE;
}

class FontObject final : public Counted<IFont, IFontDisp> {
public:
    explicit FontObject(FontValues values) : values_(std::move(values)) {}

    STDMETHODIMP get_Name(BSTR* name) override {
        if (name == nullptr) return E_POINTER;
        *name = SysAllocStringLen(values_.Name.data(), static_cast<UINT>(values_.Name.size()));
        return *name != nullptr ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP put_Name(BSTR name) override {
        if (name == nullptr) return CTL_E_INVALIDPROPERTYVALUE;
        try {
            values_.Name.assign(name, SysStringLen(name));
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
        return S_OK;
    }
    STDMETHODIMP get_Size(CY* size) override { return Get(values_.Size, size); }
    STDMETHODIMP put_Size(CY size) override { return Put(size, values_.Size); }
    STDMETHODIMP get_Bold(BOOL* bold) override {
        return Get<BOOL>(IsBold(values_.Weight) ? TRUE : FALSE, bold);
    }
    STDMETHODIMP put_Bold(BOOL bold) override {
        return Put(bold != FALSE ? BoldWeight : NormalWeight, values_.Weight);
    }
    STDMETHODIMP get_Italic(BOOL* italic) override { return Get(values_.Italic, italic); }
    STDMETHODIMP put_Italic(BOOL italic) override { return Put(italic, values_.Italic); }
    STDMETHODIMP get_Underline(BOOL* underline) override {
        return Get(values_.Underline, underline);
    }
    STDMETHODIMP put_Underline(BOOL underline) override {
        return Put(underline, values_.Underline);
    }
    STDMETHODIMP get_Strikethrough(BOOL* strikethrough) override {
        return Get(values_.Strikethrough, strikethrough);
    }
    STDMETHODIMP put_Strikethrough(BOOL strikethrough) override {
        return Put(strikethrough, values_.Strikethrough);
    }
    STDMETHODIMP get_Weight(SHORT* weight) override { return Get(values_.Weight, weight); }
    STDMETHODIMP put_Weight(SHORT weight) override { return Put(weight, values_.Weight); }
    STDMETHODIMP get_Charset(SHORT* charset) override { return Get(values_.Charset, charset); }
    STDMETHODIMP put_Charset(SHORT charset) override { return Put(charset, values_.Charset); }

    STDMETHODIMP Clone(IFont** copy) override {
        if (copy == nullptr) return E_POINTER;
        *copy = nullptr;
        try {
            *copy = new FontObject(values_);
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
        return S_OK;
    }
    STDMETHODIMP IsEqual(IFont* other) override;

    STDMETHODIMP get_hFont(HFONT* font) override {
        if (font != nullptr) *font = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP SetRatio(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP QueryTextMetrics(TEXTMETRICOLE*) override { return E_NOTIMPL; }
    STDMETHODIMP AddRefHfont(HFONT) override { return E_NOTIMPL; }
    STDMETHODIMP ReleaseHfont(HFONT) override { return E_NOTIMPL; }
    STDMETHODIMP SetHdc(HDC) override { return E_NOTIMPL; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return Get(0u, count); }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
        if (information != nullptr) *information = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID lcid, WORD flags, DISPPARAMS* params,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

private:
    void* Find(REFIID iid) override {
        if (iid == IID_IFont) return static_cast<IFont*>(this);
        const bool dispatch = iid == IID_IDispatch || iid == IID_IFontDisp;
        return dispatch ? static_cast<IFontDisp*>(this) : nullptr;
    }

    template <typename Value>
    static HRESULT Get(const Value& value, Value* result) {
        if (result == nullptr) return E_POINTER;
        *result = value;
        return S_OK;
    }
    template <typename Value>
    static HRESULT Put(const Value& value, Value& field) {
        field = value;
        return S_OK;
    }

    HRESULT Read(const Member& member, VARIANT& result);
    HRESULT Write(const Member& member, const VARIANT& value);

    FontValues values_;
};

HRESULT FontObject::IsEqual(IFont* other) {
    if (other == nullptr) return E_POINTER;
    BSTR name = nullptr;
    CY size = {};
    SHORT weight = 0;
    SHORT charset = 0;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    for (const HRESULT status :
         {other->get_Name(&name), other->get_Size(&size), other->get_Weight(&weight),
          other->get_Charset(&charset), other->get_Italic(&italic),
          other->get_Underline(&underline), other->get_Strikethrough(&strikethrough)}) {
        if (FAILED(status)) {
            SysFreeString(name);
            return status;
        }
    }
    const bool equal = EqualNames(values_.Name, {name, SysStringLen(name)}) &&
                       values_.Size.int64 == size.int64 && values_.Weight == weight &&
                       values_.Charset == charset && Truth(values_.Italic) == Truth(italic) &&
                       Truth(values_.Underline) == Truth(underline) &&
                       Truth(values_.Strikethrough) == Truth(strikethrough);
    SysFreeString(name);
    return equal ? S_OK : S_FALSE;
}

HRESULT FontObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    // The first names the member; it has no parameters that the others could name.
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    for (const Member& member : Members)
        if (names[0] != nullptr && EqualNames(member.Name, names[0])) ids[0] = member.Id;
    return ids[0] != DISPID_UNKNOWN && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT FontObject::Invoke(DISPID id, REFIID reserved, LCID lcid, WORD flags, DISPPARAMS* params,
                           VARIANT* result, EXCEPINFO*, UINT* badArgument) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (params == nullptr) return E_INVALIDARG;
    if (result != nullptr) VariantInit(result);
    const Member* member = nullptr;
    for (const Member& candidate : Members)
        if (candidate.Id == id) member = &candidate;
    if (member == nullptr) return DISP_E_MEMBERNOTFOUND;

    if ((flags & DISPATCH_PROPERTYPUT) != 0) {
        if (params->cArgs != 1) return DISP_E_BADPARAMCOUNT;
        if (params->cNamedArgs > 1 ||
            (params->cNamedArgs == 1 && params->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
            return DISP_E_NONAMEDARGS;
        VARIANT value;
        VariantInit(&value);
        HRESULT status = VariantChangeTypeEx(&value, &params->rgvarg[0], lcid, 0, member->Type);
        if (FAILED(status)) {
            if (badArgument != nullptr) *badArgument = 0;
            return status;
        }
        status = Write(*member, value);
        VariantClear(&value);
        return status;
    }
    if ((flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) == 0) return DISP_E_MEMBERNOTFOUND;
    if (params->cArgs != 0) return DISP_E_BADPARAMCOUNT;
    return result != nullptr ? Read(*member, *result) : S_OK;
}

HRESULT FontObject::Read(const Member& member, VARIANT& result) {
    switch (member.Id) {
        case DISPID_FONT_NAME:
            if (const HRESULT status = get_Name(&result.bstrVal); FAILED(status)) return status;
            break;
        case DISPID_FONT_SIZE:
            result.cyVal = values_.Size;
            break;
        case DISPID_FONT_BOLD:
            result.boolVal = Truth(IsBold(values_.Weight) ? TRUE : FALSE);
            break;
        case DISPID_FONT_ITALIC:
            result.boolVal = Truth(values_.Italic);
            break;
        case DISPID_FONT_UNDER:
            result.boolVal = Truth(values_.Underline);
            break;
        case DISPID_FONT_STRIKE:
            result.boolVal = Truth(values_.Strikethrough);
            break;
        case DISPID_FONT_WEIGHT:
            result.iVal = values_.Weight;
            break;
        default:
            result.iVal = values_.Charset;
            break;
    }
    result.vt = member.Type;
    return S_OK;
}

// The value has the member's type.
HRESULT FontObject::Write(const Member& member, const VARIANT& value) {
    switch (member.Id) {
        case DISPID_FONT_NAME:
            return put_Name(value.bstrVal);
        case DISPID_FONT_SIZE:
            return put_Size(value.cyVal);
        case DISPID_FONT_BOLD:
            return put_Bold(value.boolVal);
        case DISPID_FONT_ITALIC:
            return put_Italic(value.boolVal);
        case DISPID_FONT_UNDER:
            return put_Underline(value.boolVal);
        case DISPID_FONT_STRIKE:
            return put_Strikethrough(value.boolVal);
        case DISPID_FONT_WEIGHT:
            return put_Weight(value.iVal);
        default:
            return put_Charset(value.iVal);
    }
}

}  // namespace

HRESULT OleCreateFontIndirect(LPFONTDESC description, REFIID iid, LPVOID* font) {
    if (font == nullptr) return E_POINTER;
    *font = nullptr;
    try {
        FontValues values;
        if (description != nullptr) {
            if (description->lpstrName == nullptr) return CTL_E_INVALIDPROPERTYVALUE;
            values = {description->lpstrName,     description->cySize,  description->sWeight,
                      description->sCharset,      description->fItalic, description->fUnderline,
                      description->fStrikethrough};
        }
        auto* const object = new FontObject(std::move(values));
        const HRESULT status = object->QueryInterface(iid, font);
        object->Release();
        return status;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}
