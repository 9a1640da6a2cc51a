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
using automation::ToWellFormedUtf8;
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

TEST(Text, KeepsBytesThatAreNoCharacters) {
    const std::string_view texts[] = {
        "a\x80z",            // a continuation alone
        "\xc3",              // cut short
        "\xf0\x9d\x84",      // cut shorter
        "\xc3z",             // no continuation
        "\xc0\xaf",          // longer than needed
        "\xe0\x80\xaf",      // so too
        "\xed\xb3\xa9",      // the surrogate that encodes a byte
        "\xf4\x90\x80\x80",  // beyond the last character
        "\xf5\xff\xfe",
    };
    for (const auto& bytes : texts) {
        const OleString text = ToOle(bytes);
        EXPECT_EQ(text.size(), bytes.size()) << "one character for each";
        EXPECT_EQ(ToUtf8(text), bytes);
    }
    EXPECT_EQ(ToOle("caf\xe9\xc3\xa9"sv),
              OleString(OLESTR("caf")) + OLECHAR(0xdce9) + OLECHAR(0xe9));
}

TEST(Text, ReplacesLoneSurrogates) {
    const OLECHAR high = 0xd834;
    const OLECHAR low = 0xdd1e;
    const OLECHAR byte = 0xdce9;
    const struct {
        OleString Text;
        std::string_view Utf8;
        std::string_view WellFormed;
    } cases[] = {
        {{high}, "\xef\xbf\xbd", "\xef\xbf\xbd"},
        {{low, OLECHAR('z')}, "\xef\xbf\xbdz", "\xef\xbf\xbdz"},
        {{high, OLECHAR('z')}, "\xef\xbf\xbdz", "\xef\xbf\xbdz"},
        {{high, high, low}, "\xef\xbf\xbd\xf0\x9d\x84\x9e", "\xef\xbf\xbd\xf0\x9d\x84\x9e"},
        {{byte}, "\xe9", "\xef\xbf\xbd"},
        {{high, byte}, "\xf0\x9d\x83\xa9", "\xf0\x9d\x83\xa9"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(ToUtf8(one.Text), one.Utf8);
        EXPECT_EQ(ToWellFormedUtf8(one.Text), one.WellFormed);
    }
}

TEST(Text, KeepsTheNamesOfFiles) {
    const std::filesystem::path path = u8"/tmp/na\u00efve \U0001d11e.wav";
    EXPECT_EQ(ToPath(ToOle(path)), path);
    EXPECT_EQ(ToPath(OLESTR("x/\u00ef")), u8"x/\u00ef");
    // On Linux bytes that are not UTF-8, on Windows half of a pair.
    const std::filesystem::path odd = ToPath(OleString(OLESTR("caf")) + OLECHAR(0xdce9));
    EXPECT_EQ(odd.native().size(), 4u);
    EXPECT_EQ(ToPath(ToOle(odd)), odd);
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
