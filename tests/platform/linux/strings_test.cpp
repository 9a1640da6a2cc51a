#include <gtest/gtest.h>

#include <string>

#include "platform/automation.h"

namespace {

std::u16string Taken(BSTR string) {
    std::u16string text(string, SysStringLen(string));
    EXPECT_EQ(string[text.size()], u'\0');
    SysFreeString(string);
    return text;
}

TEST(Strings, KeepEveryCharacterAlsoZerosAndThoseOutsideTheBasicPlane) {
    const std::u16string clef = u"\U0001D11E and \u20AC";
    EXPECT_EQ(Taken(SysAllocString(clef.c_str())), clef);
    const std::u16string withZero(u"a\0b", 3);
    EXPECT_EQ(Taken(SysAllocStringLen(withZero.data(), 3)), withZero);
    EXPECT_EQ(Taken(SysAllocStringLen(withZero.data(), 0)), u"");
}

TEST(Strings, CountBytesAndCharactersAndTakeNullForTheEmptyString) {
    const BSTR odd = SysAllocStringByteLen("12345", 5);
    EXPECT_EQ(SysStringByteLen(odd), 5u);
    EXPECT_EQ(SysStringLen(odd), 2u);
    SysFreeString(odd);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    SysFreeString(nullptr);
    EXPECT_EQ(SysAllocStringLen(u"x", 0x80000000u), nullptr) << "its size has no 32-bit number";
}

TEST(Strings, CanBeReplacedByAPartOfThemselves) {
    BSTR string = SysAllocString(u"one two");
    ASSERT_TRUE(SysReAllocStringLen(&string, string + 4, 3));
    EXPECT_EQ(std::u16string(string), u"two");
    ASSERT_TRUE(SysReAllocStringLen(&string, nullptr, 5));
    EXPECT_EQ(std::u16string(string, 3), u"two") << "what was there is kept";
    ASSERT_TRUE(SysReAllocString(&string, u"new"));
    EXPECT_EQ(Taken(string), u"new");
}

TEST(Identifiers, AreWrittenInCapitalsAndReadInAnyCaseButInOneFormOnly) {
    const std::u16string text = u"{1CF2B120-547D-101B-8E65-08002B2BD119}";
    OLECHAR written[39];
    ASSERT_EQ(StringFromGUID2(IID_IErrorInfo, written, 39), 39);
    EXPECT_EQ(written, text);
    EXPECT_EQ(StringFromGUID2(IID_IErrorInfo, written, 38), 0);

    CLSID read;
    ASSERT_EQ(CLSIDFromString(u"{1cf2b120-547d-101b-8e65-08002b2bd119}", &read), S_OK);
    EXPECT_TRUE(read == IID_IErrorInfo);
    for (const std::u16string& wrong :
         {text.substr(1, 36), text + u" ",
          std::u16string(u"{1CF2B120-547D-101B-8E65-08002B2BD11G}"),
          std::u16string(u"{1CF2B120+547D-101B-8E65-08002B2BD119}"), std::u16string()}) {
        EXPECT_EQ(CLSIDFromString(wrong.c_str(), &read), CO_E_CLASSSTRING);
        EXPECT_TRUE(read == GUID_NULL);
    }
}

}  // namespace
