#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

#include "tests/platform/linux/fake_object.h"
#include "tests/platform/linux/variants.h"

namespace {

using mavrin2::tests::FakeObject;
using mavrin2::tests::Value;

std::string Printed(const std::u16string& text) {
    return {text.begin(), text.end()};
}

// Appended piece by piece: GCC 12 warns of the shorter way when it optimises.
std::string Quoted(const std::u16string& text) {
    std::string quoted(1, '\'');
    quoted += Printed(text);
    quoted += '\'';
    return quoted;
}

// What a change gives, as a text that tables can hold: the value, or the name of the failure.
std::string Changed(VARIANT* source, VARTYPE type, USHORT flags = 0) {
    Value target(VT_I4, &VARIANT::lVal, 77);
    const HRESULT status = VariantChangeType(&target, source, flags, type);
    if (FAILED(status)) {
        EXPECT_TRUE(target->vt == VT_I4 && target->lVal == 77) << "a failure changes nothing";
        return status == DISP_E_TYPEMISMATCH ? "mismatch"
               : status == DISP_E_OVERFLOW   ? "overflow"
               : status == DISP_E_BADVARTYPE ? "bad type"
                                             : "other failure";
    }
    EXPECT_EQ(target->vt, type);
    switch (type) {
        case VT_I1:
            return std::to_string(static_cast<signed char>(target->cVal));
        case VT_UI1:
            return std::to_string(target->bVal);
        case VT_I2:
            return std::to_string(target->iVal);
        case VT_UI2:
            return std::to_string(target->uiVal);
        case VT_I4:
        case VT_INT:
            return std::to_string(target->lVal);
        case VT_UI4:
        case VT_UINT:
            return std::to_string(target->ulVal);
        case VT_I8:
            return std::to_string(target->llVal);
        case VT_UI8:
            return std::to_string(target->ullVal);
        case VT_R4:
            return std::to_string(target->fltVal);
        case VT_R8:
            return std::to_string(target->dblVal);
        case VT_DATE:
            return std::to_string(target->date);
        case VT_CY:
            return std::to_string(target->cyVal.int64);
        case VT_BOOL:
            return std::to_string(target->boolVal);
        case VT_BSTR:
            return Quoted(target.Text());
        default:
            return "done";
    }
}

struct Expectation {
    VARTYPE Type;
    std::string Result;
};

void ExpectAll(VARIANT* source, std::initializer_list<Expectation> expectations) {
    for (const auto& [type, result] : expectations) {
        EXPECT_EQ(Changed(source, type), result) << "to type " << type;
    }
}

TEST(Coercion, RoundsToTheNearestAndHalvesToTheEvenInteger) {
    const struct {
        double Value;
        std::string Expected;
    } cases[] = {{0.5, "0"},  {1.5, "2"},    {2.5, "2"},  {-0.5, "0"}, {-1.5, "-2"},
                 {0.51, "1"}, {-0.51, "-1"}, {2.49, "2"}, {-2.5, "-2"}};
    for (const auto& [number, expected] : cases) {
        Value source(VT_R8, &VARIANT::dblVal, number);
        for (const VARTYPE type : {VT_I1, VT_I2, VT_I4, VT_I8, VT_INT}) {
            EXPECT_EQ(Changed(&source, type), expected) << number;
        }
        Value money(VT_CY, &VARIANT::llVal, number * 10000);
        EXPECT_EQ(Changed(&money, VT_I4), expected) << number;
    }
}

TEST(Coercion, OverflowsRightAfterTheLastNumberThatFits) {
    const struct {
        VARTYPE Type;
        double Last;
        double TooLarge;
        std::string Expected;
    } cases[] = {
        {VT_I1, 127.4, 127.5, "127"},
        {VT_I1, -128.5, -128.6, "-128"},
        {VT_UI1, 255.4, 255.5, "255"},
        {VT_UI1, -0.5, -0.6, "0"},
        {VT_I2, 32767.4, 32767.5, "32767"},
        {VT_I2, -32768.5, -32769, "-32768"},
        {VT_UI2, 65535.4, 65536, "65535"},
        {VT_I4, 2147483647.4, 2147483647.5, "2147483647"},
        {VT_I4, -2147483648.5, -2147483649.0, "-2147483648"},
        {VT_UI4, 4294967295.4, 4294967296.0, "4294967295"},
        {VT_I8, 9223372036854774784.0, 9223372036854775808.0, "9223372036854774784"},
        {VT_I8, -9223372036854775808.0, -9223372036854777856.0, "-9223372036854775808"},
        {VT_UI8, 18446744073709549568.0, 18446744073709551616.0, "18446744073709549568"},
        {VT_CY, 922337203685477.0, 922337203685478.0, "9223372036854770000"},
        {VT_DATE, 2958465.5, 2958466.0, "2958465.500000"},
        {VT_R4, 1.0, 1e39, "1.000000"},
    };
    for (const auto& [type, last, tooLarge, expected] : cases) {
        Value fits(VT_R8, &VARIANT::dblVal, last);
        Value overflows(VT_R8, &VARIANT::dblVal, tooLarge);
        EXPECT_EQ(Changed(&fits, type), expected) << type;
        EXPECT_EQ(Changed(&overflows, type), "overflow") << type << " " << tooLarge;
    }
    Value noNumber(VT_R8, &VARIANT::dblVal, std::nan(""));
    EXPECT_EQ(Changed(&noNumber, VT_I4), "overflow");
}

TEST(Coercion, ReinterpretsIntegersOfOneWidthAndChecksTheOthers) {
    Value byte(VT_I1, &VARIANT::cVal, -1);
    ExpectAll(&byte, {{VT_UI1, "255"}, {VT_UI2, "overflow"}, {VT_I4, "-1"}, {VT_R8, "-1.000000"}});
    Value unsignedShort(VT_UI2, &VARIANT::uiVal, 60000);
    ExpectAll(&unsignedShort, {{VT_I2, "-5536"}, {VT_I1, "overflow"}, {VT_I4, "60000"}});
    Value integer(VT_I4, &VARIANT::lVal, -7);
    ExpectAll(&integer, {{VT_UI4, "4294967289"},
                         {VT_UINT, "4294967289"},
                         {VT_UI8, "overflow"},
                         {VT_UI1, "overflow"},
                         {VT_BOOL, "-1"},
                         {VT_CY, "-70000"},
                         {VT_BSTR, "'-7'"},
                         {VT_DATE, "-7.000000"}});
    Value large(VT_UI8, &VARIANT::ullVal, std::numeric_limits<std::uint64_t>::max());
    ExpectAll(&large, {{VT_I8, "-1"},
                       {VT_CY, "overflow"},
                       {VT_UI4, "overflow"},
                       {VT_BSTR, "'18446744073709551615'"}});
}

TEST(Coercion, KeepsABooleansBitsAndItsSign) {
    Value odd(VT_BOOL, &VARIANT::boolVal, 5);
    ExpectAll(&odd, {{VT_BOOL, "5"}, {VT_I4, "5"}, {VT_R8, "5.000000"}, {VT_BSTR, "'5'"}});
    Value yes(VT_BOOL, &VARIANT::boolVal, VARIANT_TRUE);
    ExpectAll(&yes, {{VT_UI1, "255"}, {VT_UI4, "4294967295"}, {VT_I8, "-1"}, {VT_BSTR, "'-1'"}});
    EXPECT_EQ(Changed(&yes, VT_BSTR, VARIANT_ALPHABOOL), "'True'");
    Value no(VT_BOOL, &VARIANT::boolVal, VARIANT_FALSE);
    EXPECT_EQ(Changed(&no, VT_BSTR, VARIANT_ALPHABOOL), "'False'");
    Value tiny(VT_R8, &VARIANT::dblVal, 1e-300);
    EXPECT_EQ(Changed(&tiny, VT_BOOL), "-1") << "not zero is true";
}

TEST(Coercion, WritesNumbersWithAPointWhateverTheLocale) {
    const char* const old = std::setlocale(LC_NUMERIC, nullptr);
    const std::string restored = old;
    // Where that locale is not installed, the case is the same as without it.
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    const struct {
        double Number;
        std::string Expected;
    } cases[] = {{0.1, "'0.1'"},       {1.5, "'1.5'"},
                 {-0.0, "'0'"},        {1e15, "'1E+15'"},
                 {1e-5, "'1E-05'"},    {1e300, "'1E+300'"},
                 {123456, "'123456'"}, {1.0 / 3, "'0.333333333333333'"}};
    for (const auto& [number, expected] : cases) {
        Value source(VT_R8, &VARIANT::dblVal, number);
        EXPECT_EQ(Changed(&source, VT_BSTR), expected);
    }
    Value single(VT_R4, &VARIANT::fltVal, 1.0f / 3);
    EXPECT_EQ(Changed(&single, VT_BSTR), "'0.3333333'");
    for (const auto& [amount, expected] :
         {std::pair<LONGLONG, std::string>{12345, "'1.2345'"},
          {-5, "'-0.0005'"},
          {15000, "'1.5'"},
          {std::numeric_limits<LONGLONG>::min(), "'-922337203685477.5808'"}}) {
        Value money(VT_CY, &VARIANT::llVal, amount);
        EXPECT_EQ(Changed(&money, VT_BSTR), expected);
    }
    Value text(u"1.5");
    EXPECT_EQ(Changed(&text, VT_R8), "1.500000");
    std::setlocale(LC_NUMERIC, restored.c_str());
}

TEST(Coercion, ReadsANumberOnlyFromTheWholeText) {
    const struct {
        std::u16string Text;
        std::string AsReal;
        std::string AsInteger;
    } cases[] = {{u"12", "12.000000", "12"},
                 {u" \t12\u00A0", "12.000000", "12"},
                 {u"+3", "3.000000", "3"},
                 {u"- 3", "-3.000000", "-3"},
                 {u"3-", "-3.000000", "-3"},
                 {u"(3)", "-3.000000", "-3"},
                 {u"2.5", "2.500000", "2"},
                 {u".5", "0.500000", "0"},
                 {u"5.", "5.000000", "5"},
                 {u"1e3", "1000.000000", "1000"},
                 {u"1E+2", "100.000000", "100"},
                 {u"1e-400", "0.000000", "0"},
                 {u"&HfF", "255.000000", "255"},
                 {u"&o17", "15.000000", "15"},
                 {u"4294967296", "4294967296.000000", "overflow"},
                 {u"1e400", "overflow", "overflow"},
                 {u"1e5000", "overflow", "overflow"}};
    for (const auto& [text, real, integer] : cases) {
        Value source(text);
        EXPECT_EQ(Changed(&source, VT_R8), real) << Printed(text);
        EXPECT_EQ(Changed(&source, VT_I4), integer) << Printed(text);
    }
    for (const char16_t* const text :
         {u"", u" ", u"-", u"--3", u"(-3)", u".", u"1e", u"e5", u"1 2", u"12x", u"0x10", u"&H",
          u"nan", u"inf", u"True", u"\u0661"}) {
        Value source{std::u16string(text)};
        EXPECT_EQ(Changed(&source, VT_R8), "mismatch") << Printed(text);
    }
    Value nothing(VT_BSTR, &VARIANT::bstrVal, nullptr);
    EXPECT_EQ(Changed(&nothing, VT_I4), "mismatch");
    Value exact(u"9223372036854775807");
    EXPECT_EQ(Changed(&exact, VT_I8), "9223372036854775807");
    Value money(u"922337203685477.5807");
    EXPECT_EQ(Changed(&money, VT_CY), "9223372036854775807");
}

TEST(Coercion, ReadsBooleansFromWordsAndNumbers) {
    const std::pair<std::u16string, std::string> cases[] = {
        {u"True", "-1"}, {u"fALSE", "0"},      {u"#TRUE#", "-1"},     {u"0", "0"},
        {u"0.1", "-1"},  {u"Yes", "mismatch"}, {u" True", "mismatch"}};
    for (const auto& [text, expected] : cases) {
        Value source(text);
        EXPECT_EQ(Changed(&source, VT_BOOL), expected) << Printed(text);
    }
}

TEST(Coercion, MakesNothingOutOfNullAndErrorsAndZeroOutOfEmpty) {
    Value empty;
    ExpectAll(&empty, {{VT_I4, "0"},
                       {VT_R8, "0.000000"},
                       {VT_BSTR, "''"},
                       {VT_BOOL, "0"},
                       {VT_NULL, "done"},
                       {VT_EMPTY, "done"},
                       {VT_DISPATCH, "mismatch"},
                       {VT_ERROR, "mismatch"},
                       {VT_ARRAY | VT_I2, "mismatch"}});
    VARIANT null = {};
    null.vt = VT_NULL;
    ExpectAll(&null, {{VT_NULL, "done"},
                      {VT_I4, "mismatch"},
                      {VT_BSTR, "mismatch"},
                      {VT_BOOL, "mismatch"},
                      {VT_EMPTY, "mismatch"}});
    Value missing(VT_ERROR, &VARIANT::scode, DISP_E_PARAMNOTFOUND);
    ExpectAll(&missing, {{VT_ERROR, "done"}, {VT_I4, "mismatch"}, {VT_EMPTY, "mismatch"}});
    Value number(VT_I4, &VARIANT::lVal, 1);
    ExpectAll(&number, {{VT_ERROR, "mismatch"},
                        {VT_UNKNOWN, "mismatch"},
                        {VT_EMPTY, "done"},
                        {VT_NULL, "done"},
                        {VT_VARIANT, "mismatch"},
                        {VT_I4 | VT_BYREF, "mismatch"},
                        {VT_VOID, "bad type"}});
}

TEST(Coercion, AsksAnObjectForItsDefaultProperty) {
    Value seven(u"7");
    FakeObject object(*&seven);
    VARIANT source = {};
    source.vt = VT_DISPATCH;
    source.pdispVal = &object;
    ExpectAll(&source,
              {{VT_I4, "7"}, {VT_BSTR, "'7'"}, {VT_EMPTY, "done"}, {VT_ERROR, "mismatch"}});
    EXPECT_EQ(Changed(&source, VT_I4, VARIANT_NOVALUEPROP), "mismatch");
    ExpectAll(&source, {{VT_UNKNOWN, "done"}, {VT_DISPATCH, "done"}});
    EXPECT_EQ(object.References(), 0u) << "everything was given back";

    FakeObject bare;
    source.pdispVal = &bare;
    EXPECT_EQ(Changed(&source, VT_I4), "mismatch");
    source.pdispVal = nullptr;
    ExpectAll(&source, {{VT_I4, "bad type"}, {VT_UNKNOWN, "done"}});
    source.vt = VT_UNKNOWN;
    EXPECT_EQ(Changed(&source, VT_I4), "mismatch");
}

TEST(Coercion, FollowsReferencesAndWorksInPlace) {
    double number = 2.5;
    VARIANT reference = {};
    reference.vt = VT_R8 | VT_BYREF;
    reference.pdblVal = &number;
    ExpectAll(&reference, {{VT_I4, "2"}, {VT_BSTR, "'2.5'"}, {VT_R8, "2.500000"}});
    VARIANT outer = {};
    outer.vt = VT_VARIANT | VT_BYREF;
    outer.pvarVal = &reference;
    EXPECT_EQ(Changed(&outer, VT_I4), "2");
    reference.byref = nullptr;
    EXPECT_EQ(Changed(&reference, VT_I4), "mismatch");

    Value text(u"12");
    ASSERT_EQ(VariantChangeType(&text, &text, 0, VT_I2), S_OK);
    EXPECT_EQ(text->iVal, 12);
}

TEST(Coercion, KeepsArraysButForBytesAndStrings) {
    Value shorts(VT_ARRAY | VT_I2, &VARIANT::parray, SafeArrayCreateVector(VT_I2, 0, 2));
    ExpectAll(&shorts, {{VT_ARRAY | VT_I2, "done"},
                        {VT_ARRAY | VT_I4, "mismatch"},
                        {VT_BSTR, "mismatch"},
                        {VT_I2, "mismatch"},
                        {VT_EMPTY, "mismatch"}});
    Value text(u"ab");
    Value bytes;
    ASSERT_EQ(VariantChangeType(&bytes, &text, 0, VT_ARRAY | VT_UI1), S_OK);
    EXPECT_EQ(bytes->parray->rgsabound[0].cElements, 4u);
    EXPECT_EQ(Changed(&bytes, VT_BSTR), "'ab'");
}

}  // namespace
