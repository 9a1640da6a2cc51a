#include "automation/text.h"

#include <gtest/gtest.h>

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::EqualIgnoringCase;
using automation::OleString;
using automation::OleStringView;
using automation::ToOle;
using automation::ToPath;
using automation::ToUtf8;
using namespace std::string_view_literals;

TEST(Text, ConvertsWellFormedTextBothWays) {
    const std::pair<std::string_view, OleStringView> texts[] = {
        {"", OLESTR("")},
        {"plain", OLESTR("plain")},
        {"a\0b"sv, OleStringView(OLESTR("a\0b"), 3)},
        {"\x7f\xc2\x80\xdf\xbf", OLESTR("\x7f\x80\u07ff")},
        {"\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf", OLESTR("\u0800\ud7ff\ue000\uffff")},
        {"\xf0\x90\x80\x80\xf4\x8f\xbf\xbf", OLESTR("\U00010000\U0010ffff")},
        {"na\xc3\xafve \xf0\x9d\x84\x9e", OLESTR("na\u00efve \U0001d11e")},
    };
    for (const auto& [utf8, utf16] : texts) {
        EXPECT_EQ(ToOle(utf8), utf16);
        EXPECT_EQ(ToUtf8(utf16), utf8);
    }
}

TEST(Text, ReplacesWhatIsMalformedAndGoesOnBehindIt) {
    const std::pair<std::string_view, OleStringView> toOle[] = {
        {"a\x80z", OLESTR("a\ufffdz")},                            // a continuation alone
        {"\xc3", OLESTR("\ufffd")},                                // cut short
        {"\xf0\x9d\x84", OLESTR("\ufffd\ufffd\ufffd")},            // cut shorter
        {"\xc3z", OLESTR("\ufffdz")},                              // no continuation
        {"\xc0\xaf", OLESTR("\ufffd\ufffd")},                      // longer than needed
        {"\xe0\x80\xaf", OLESTR("\ufffd\ufffd\ufffd")},            // so too
        {"\xed\xa0\x80", OLESTR("\ufffd\ufffd\ufffd")},            // half of a pair
        {"\xf4\x90\x80\x80", OLESTR("\ufffd\ufffd\ufffd\ufffd")},  // beyond the last character
        {"\xff\xfe", OLESTR("\ufffd\ufffd")},
    };
    for (const auto& [utf8, utf16] : toOle)
        EXPECT_EQ(ToOle(utf8), utf16);

    const OLECHAR high = 0xd834;
    const OLECHAR low = 0xdd1e;
    const std::pair<OleString, std::string_view> toUtf8[] = {
        {{high}, "\xef\xbf\xbd"},
        {{low, OLECHAR('z')}, "\xef\xbf\xbdz"},
        {{high, OLECHAR('z')}, "\xef\xbf\xbdz"},
        {{low, high}, "\xef\xbf\xbd\xef\xbf\xbd"},
        {{high, high, low}, "\xef\xbf\xbd\xf0\x9d\x84\x9e"},
    };
    for (const auto& [utf16, utf8] : toUtf8)
        EXPECT_EQ(ToUtf8(utf16), utf8);
}

TEST(Text, KeepsTheNamesOfFiles) {
    const std::filesystem::path path = u8"/tmp/na\u00efve \U0001d11e.wav";
    EXPECT_EQ(ToPath(ToOle(path)), path);
    EXPECT_EQ(ToPath(OLESTR("x/\u00ef")), u8"x/\u00ef");
}

TEST(Text, ComparesAsciiLettersWithoutCase) {
    EXPECT_TRUE(EqualIgnoringCase("BlockOperation_2", "blockOPERATION_2"));
    EXPECT_FALSE(EqualIgnoringCase("abc", "abcd"));
    EXPECT_FALSE(EqualIgnoringCase("@[", "`{")) << "neighbours of letters";
    EXPECT_FALSE(EqualIgnoringCase("\xc3\x84", "\xc3\xa4")) << "other letters are left alone";
}

TEST(Bstr, OwnsItsCharacters) {
    const Bstr empty;
    EXPECT_EQ(empty.View(), OLESTR(""));
    Bstr text(OleStringView(OLESTR("a\0b"), 3));
    EXPECT_EQ(SysStringLen(text.Get()), 3U);
    Bstr other(std::move(text));
    EXPECT_EQ(other.Utf8(), "a\0b"sv);
    *other.Put() = automation::NewBstr("next"sv);
    EXPECT_EQ(other.View(), OLESTR("next"));
}

}  // namespace
}  // namespace mavrin2::tests
