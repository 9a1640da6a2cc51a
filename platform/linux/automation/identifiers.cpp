#include <string_view>

#include "platform/linux/automation/functions.h"
#include "platform/linux/automation/identifier_text.h"
#include "platform/linux/automation/status.h"

namespace {

// Most of the published identifiers differ in their first field only.
constexpr IID Classic(std::uint32_t first) {
    return {first, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
}
constexpr IID Connection(std::uint32_t first) {
    return {first, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
}
constexpr IID Error(std::uint32_t first, std::uint16_t second) {
    return {first, second, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
}

constexpr std::u16string_view Pattern = u"{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
// The byte of the record that each pair of digits states, in the order of the text.
constexpr int ByteOrder[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};

int DigitValue(OLECHAR c) {
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    return -1;
}

}  // namespace

namespace mavrin2::platform::automation {

bool ParseIdentifier(std::u16string_view text, GUID& guid) {
    if (text.size() != Pattern.size()) return false;
    std::uint8_t bytes[sizeof(GUID)] = {};
    int digit = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (Pattern[i] != u'x') {
            if (text[i] != Pattern[i]) return false;
            continue;
        }
        const int value = DigitValue(text[i]);
        if (value < 0) return false;
        std::uint8_t& byte = bytes[ByteOrder[digit / 2]];
        byte = static_cast<std::uint8_t>(byte << 4 | value);
        ++digit;
    }
    std::memcpy(&guid, bytes, sizeof(guid));
    return true;
}

}  // namespace mavrin2::platform::automation

const GUID GUID_NULL = {};
const IID IID_IUnknown = Classic(0x00000000);
const IID IID_IClassFactory = Classic(0x00000001);
const IID IID_IDispatch = Classic(0x00020400);
const IID IID_ITypeInfo = Classic(0x00020401);
const IID IID_ITypeLib = Classic(0x00020402);
const IID IID_ITypeComp = Classic(0x00020403);
const IID IID_IErrorInfo = Error(0x1CF2B120, 0x547D);
const IID IID_ICreateErrorInfo = Error(0x22F03340, 0x547D);
const IID IID_ISupportErrorInfo = Error(0xDF0B3D60, 0x548F);
const IID IID_IProvideClassInfo = Connection(0xB196B283);
const IID IID_IConnectionPointContainer = Connection(0xB196B284);
const IID IID_IEnumConnectionPoints = Connection(0xB196B285);
const IID IID_IConnectionPoint = Connection(0xB196B286);
const IID IID_IEnumConnections = Connection(0xB196B287);
const IID IID_IProvideClassInfo2 = {
    0xA6BC3AC0, 0xDBAA, 0x11CE, {0x9D, 0xE3, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51}};
const IID IID_IPropertyNotifySink = {
    0x9BFBBC02, 0xEFF1, 0x101A, {0x84, 0xED, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};

HRESULT CLSIDFromString(LPCOLESTR text, LPCLSID clsid) {
    if (clsid == nullptr) return E_INVALIDARG;
    *clsid = GUID_NULL;
    if (text == nullptr) return S_OK;
    if (mavrin2::platform::automation::ParseIdentifier(text, *clsid)) return S_OK;
    // A program identifier does as well.
    return CLSIDFromProgID(text, clsid);
}

int StringFromGUID2(REFGUID guid, LPOLESTR text, int room) {
    const int needed = static_cast<int>(Pattern.size()) + 1;
    if (text == nullptr || room < needed) return 0;
    std::uint8_t bytes[sizeof(GUID)];
    std::memcpy(bytes, &guid, sizeof(guid));
    int digit = 0;
    for (std::size_t i = 0; i < Pattern.size(); ++i) {
        if (Pattern[i] != u'x') {
            text[i] = Pattern[i];
            continue;
        }
        const std::uint8_t byte = bytes[ByteOrder[digit / 2]];
        text[i] = u"0123456789ABCDEF"[digit % 2 == 0 ? byte >> 4 : byte & 0xF];
        ++digit;
    }
    text[Pattern.size()] = u'\0';
    return needed;
}
