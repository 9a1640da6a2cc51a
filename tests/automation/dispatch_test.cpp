#include "automation/dispatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/automation/dispatch_calls.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::OleString;
using automation::ToOle;
using automation::ToUtf8;
using automation::Variant;
using namespace std::string_view_literals;

// What is the same in each way that the system has.
class Dispatch : public Calls, public testing::TestWithParam<WayToCall> {
protected:
    Dispatch() : Calls(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Through, Dispatch, testing::ValuesIn(WaysToCall()),
                         [](const auto& way) { return std::string(way.param.Name); });

TEST_P(Dispatch, ConvertsArgumentsAsTheSystemDoesAndTellsWhichOneIsWrong) {
    const CallCase cases[] = {
        {"as it is", "EchoLong", {LONG{-5}}, {}, S_OK, LONG{-5}},
        {"a text", "EchoLong", {"12"}, {}, S_OK, LONG{12}},
        {"too large", "EchoShort", {LONG{70000}}, {}, DISP_E_OVERFLOW, {}, 0},
        {"null", "EchoLong", {Null{}}, {}, DISP_E_TYPEMISMATCH, {}, 0},
        {"single precision", "EchoFloat", {0.5}, {}, S_OK, FLOAT{0.5F}},
        {"double precision", "EchoDouble", {"-1.25"}, {}, S_OK, -1.25},
        {"a text beyond the basic plane",
         "EchoText",
         {"\xF0\x9D\x84\x9E clef"},
         {},
         S_OK,
         "\xF0\x9D\x84\x9E clef"},
        {"an enumeration is a number", "EchoShape", {SHORT{4}}, {}, S_OK, LONG{4}},
        {"booleans keep their bits", "EchoBoolean", {Bool{763}}, {}, S_OK, Bool{763}},
        {"other numbers become true", "EchoBoolean", {LONG{763}}, {}, S_OK, Bool{-1}},
        {"anything stays what it is", "EchoAny", {FLOAT{2}}, {}, S_OK, FLOAT{2}},
        {"optional ones left out", "WithDefaults", {LONG{1}}, {}, S_OK, "1 7 -1 -2.5 none 4"},
        {"one of them", "WithDefaults", {LONG{1}, LONG{2}}, {}, S_OK, "1 2 -1 -2.5 none 4"},
        {"in the middle",
         "WithDefaults",
         {LONG{1}, LeftOut{}, Bool{5}},
         {},
         S_OK,
         "1 7 5 -2.5 none 4"},
        {"by name", "WithDefaults", {Bool{0}, LONG{1}}, {2}, S_OK, "1 7 0 -2.5 none 4"},
        {"all given",
         "WithDefaults",
         {LONG{1}, LONG{2}, Bool{3}, 4.5, "five", LONG{1}},
         {},
         S_OK,
         "1 2 3 4.5 five 1"},
        {"several by name",
         "WithDefaults",
         {Bool{0}, LONG{3}, LONG{1}},
         {2, 1, 0},
         S_OK,
         "1 3 0 -2.5 none 4"},
        {"too many", "EchoLong", {LONG{1}, LONG{2}}, {}, DISP_E_BADPARAMCOUNT, {}},
        {"none given", "WithDefaults", {}, {}, DISP_E_BADPARAMCOUNT, {}},
        {"the second is wrong",
         "WithDefaults",
         {LONG{1}, "x", Bool{0}},
         {},
         DISP_E_TYPEMISMATCH,
         {},
         1},
        {"no array", "DoubleAll", {LONG{1}}, {}, DISP_E_TYPEMISMATCH, {}, 0},
        {"no object", "IsSame", {LONG{1}}, {}, DISP_E_TYPEMISMATCH, {}, 0},
    };
    Check(cases);
}

TEST_P(Dispatch, FollowsReferencesToArguments) {
    LONG number = 41;
    VARIANT byNumber{};
    byNumber.vt = VT_BYREF | VT_I4;
    byNumber.plVal = &number;
    EXPECT_EQ(FromVariant(LateCall(Object(), "EchoShort", kCall, Raw{{byNumber}}).Result),
              Value(SHORT{41}));

    Variant text = ToVariant("17");
    VARIANT byVariant{};
    byVariant.vt = VT_BYREF | VT_VARIANT;
    byVariant.pvarVal = &text;
    EXPECT_EQ(FromVariant(LateCall(Object(), "EchoLong", kCall, Raw{{byVariant}}).Result),
              Value(LONG{17}));
}

TEST_P(Dispatch, FillsOutParametersOnSuccessOnly) {
    BSTR text = nullptr;
    VARIANT byText{};
    byText.vt = VT_BYREF | VT_BSTR;
    byText.pbstrVal = &text;
    LONG remainder = 41;
    VARIANT byNumber{};
    byNumber.vt = VT_BYREF | VT_I4;
    byNumber.plVal = &remainder;
    const VARIANT zero = ToVariant(LONG{0});
    const VARIANT five = ToVariant(LONG{5});
    const VARIANT seventeen = ToVariant(LONG{17});

    const LateCall failing(Object(), "Divide", kCall, Raw{{byText, byNumber, zero, seventeen}});
    EXPECT_EQ(failing.Status, DISP_E_EXCEPTION);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(remainder, 41);
    const LateCall call(Object(), "Divide", kCall, Raw{{byText, byNumber, five, seventeen}});
    ASSERT_EQ(call.Status, S_OK);
    EXPECT_EQ(FromVariant(call.Result), Value(LONG{3}));
    EXPECT_EQ(remainder, 2);
    EXPECT_EQ(ToUtf8(Bstr::View(text)), "17/5");
    SysFreeString(text);
}

// An array of 16-bit or 32-bit numbers with the value at its end.
Variant ArrayWith(VARTYPE type, LONG value) {
    Variant values;
    values.parray = SafeArrayCreateVector(type, 0, 3);
    values.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    LONG place = 2;
    EXPECT_EQ(SafeArrayPutElement(values.parray, &place, &value), S_OK);
    return values;
}

SHORT ElementOf(SAFEARRAY* array, LONG place) {
    SHORT value = -1;
    EXPECT_EQ(SafeArrayGetElement(array, &place, &value), S_OK);
    return value;
}

VARIANT ByAddress(VARTYPE type, void* value) {
    VARIANT reference{};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
    reference.byref = value;
    return reference;
}

TEST_P(Dispatch, PassesArraysOfTheDescribedElementOnlyInEveryWayACallerHoldsThem) {
    Variant shorts = ArrayWith(VT_I2, 21);
    Variant longs = ArrayWith(VT_I4, 21);
    for (const char* member : {"DoubleAll", "Sum"}) {
        for (const VARIANT& argument :
             {static_cast<VARIANT>(shorts), ByAddress(VT_ARRAY | VT_I2, &shorts.parray)}) {
            const LateCall call(Object(), member, kCall, Raw{{argument}});
            ASSERT_EQ(call.Status, S_OK) << member << argument.vt;
            EXPECT_EQ(
                call.Result.vt & VT_ARRAY ? ElementOf(call.Result.parray, 2) / 2 : call.Result.lVal,
                21);
        }
        EXPECT_EQ(LateCall(Object(), member, kCall, Raw{{longs}}).Status, DISP_E_TYPEMISMATCH);
    }
}

TEST_P(Dispatch, ChangesTheVariablesOfTheCaller) {
    Variant values = ArrayWith(VT_I2, 21);
    LONG count = 41;
    BSTR text = automation::NewBstr("Hey"sv);
    const LateCall call(Object(), "Grow", kCall,
                        Raw{{ByAddress(VT_BSTR, &text), ByAddress(VT_I4, &count),
                             ByAddress(VT_ARRAY | VT_I2, &values.parray)}});
    ASSERT_EQ(call.Status, S_OK);
    EXPECT_EQ(ElementOf(values.parray, 2), 21);
    EXPECT_EQ(ElementOf(values.parray, 3), 7);
    EXPECT_EQ(count, 42);
    EXPECT_EQ(ToUtf8(Bstr::View(text)), "Hey!");
    SysFreeString(text);
}

TEST_P(Dispatch, HandsObjectsThroughByTheInterfaceThatIsDescribed) {
    VARIANT self{};
    self.vt = VT_UNKNOWN;
    self.punkVal = thing_.Get();
    EXPECT_EQ(FromVariant(LateCall(Object(), "IsSame", kCall, Raw{{self}}).Result),
              Value(Bool{-1}));

    const LateCall made(Object(), "MakeThing", kCall, Values{});
    ASSERT_EQ(made.Result.vt, VT_DISPATCH);
    EXPECT_EQ(FromVariant(LateCall(Object(), "IsSame", kCall, Raw{{made.Result}}).Result),
              Value(Bool{0}));
}

TEST_P(Dispatch, ReadsAndWritesPropertiesWithAndWithoutIndices) {
    EXPECT_EQ(LateCall(Object(), "Item", kPut, {"five", LONG{5}}, {kNewValue}).Status, S_OK);
    EXPECT_EQ(FromVariant(LateCall(Object(), "Item", kGet, Values{LONG{5}}).Result), Value("five"));
    // Languages that cannot tell a call from an indexed property ask for both.
    EXPECT_EQ(FromVariant(LateCall(Object(), "Item", kCall | kGet, Values{"5"}).Result),
              Value("five"));
    // Which argument is the new value has to be said.
    EXPECT_EQ(LateCall(Object(), "Item", kPut, {LONG{6}, "six"}).Status, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(FromVariant(LateCall(Object(), "item", kGet, Values{LONG{5}}).Result), Value("five"));

    EXPECT_EQ(LateCall(Object(), "Enabled", kPut, {Bool{1}}, {kNewValue}).Status, S_OK);
    EXPECT_EQ(FromVariant(LateCall(Object(), "Enabled", kGet, Values{}).Result), Value(Bool{1}));

    const LateCall made(Object(), "MakeThing", kCall, Values{});
    for (const auto& [flags, by] :
         {std::pair(kPut, "put"),
          std::pair<WORD, const char*>(DISPATCH_PROPERTYPUTREF, "putref")}) {
        EXPECT_EQ(LateCall(Object(), "Friend", flags, Raw{{made.Result}}, {kNewValue}).Status,
                  S_OK);
        EXPECT_EQ(FromVariant(LateCall(Object(), "FriendBy", kGet, Values{}).Result), Value(by));
    }
    const LateCall read(Object(), "Friend", kGet, Values{});
    EXPECT_EQ(read.Result.pdispVal, made.Result.pdispVal);

    EXPECT_EQ(LateCall(Object(), "Alive", kPut, {LONG{1}}, {kNewValue}).Status,
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(LateCall(Object(), "Secret", kGet, Values{}).Status, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(LateCall(Object(), "Item", kPut, Values{}).Status, DISP_E_PARAMNOTFOUND);
}

TEST_P(Dispatch, TakesWhatAPropertyHasNoParametersForAsMeantForItsValue) {
    EXPECT_EQ(LateCall(Object(), "Alive", kGet, Values{LONG{1}}).Status, DISP_E_NOTACOLLECTION);
    const LateCall made(Object(), "MakeThing", kCall, Values{});
    ASSERT_EQ(LateCall(Object(), "Friend", kPut, Raw{{made.Result}}, {kNewValue}).Status, S_OK);
    ASSERT_EQ(LateCall(*made.Result.pdispVal, "Item", kPut, {"five", LONG{5}}, {kNewValue}).Status,
              S_OK);
    EXPECT_EQ(FromVariant(LateCall(Object(), "Friend", kCall | kGet, Values{LONG{5}}).Result),
              Value("five"));
}

TEST_P(Dispatch, ReportsTheFailureOfAMemberWithItsOwnWords) {
    const LateCall described(Object(), "Fail", kCall, {LONG{E_ACCESSDENIED}, "No entry."});
    EXPECT_EQ(described.Status, DISP_E_EXCEPTION);
    EXPECT_EQ(described.Exception.scode, E_ACCESSDENIED);
    EXPECT_EQ(ToUtf8(Bstr::View(described.Exception.bstrDescription)), "No entry.");
    EXPECT_EQ(ToUtf8(Bstr::View(described.Exception.bstrSource)), "MavrinTest.Thing");

    const LateCall thrown(Object(), "Fail", kCall, {LONG{0}, "throw"});
    EXPECT_EQ(thrown.Exception.scode, E_OUTOFMEMORY);
}

TEST_P(Dispatch, RefusesCallsThatMakeNoSense) {
    DISPPARAMS none{};
    const auto invoke = [&](DISPID id, DISPPARAMS* arguments) {
        return object_->Invoke(id, IID_NULL, 0, kCall, arguments, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(15, &none), S_OK) << "the result is optional";
    EXPECT_EQ(invoke(9, &none), DISP_E_MEMBERNOTFOUND) << "planned, but not there yet";
    EXPECT_EQ(invoke(15, nullptr), E_INVALIDARG);
    VARIANT one{};
    DISPID name = 0;
    DISPPARAMS broken{&one, &name, 0, 1};
    EXPECT_EQ(invoke(15, &broken), E_INVALIDARG) << "more names than arguments";
}

TEST_P(Dispatch, FindsMembersAndParametersByName) {
    OleString member = ToOle(std::string_view("WITHdefaults"));
    OleString third = ToOle(std::string_view("third"));
    OleString first = ToOle(std::string_view("First"));
    OleString unknown = ToOle(std::string_view("Seventh"));
    LPOLESTR names[] = {member.data(), third.data(), first.data()};
    DISPID ids[3] = {};
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 3, 0, ids), S_OK);
    EXPECT_THAT(ids, testing::ElementsAre(12, 2, 0));

    names[1] = unknown.data();
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_THAT(ids, testing::ElementsAre(12, DISPID_UNKNOWN, 0));
    names[0] = unknown.data();
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 1, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], DISPID_UNKNOWN);
}

}  // namespace
}  // namespace mavrin2::tests
