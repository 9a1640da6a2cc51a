#include <gtest/gtest.h>

#include "automation/text.h"
#include "tests/automation/dispatch_calls.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::OleString;
using automation::ToOle;
using automation::Variant;

// What the object itself does as documented, or does for scripts beyond that, where a system's
// own late binding goes its own way.
class ObjectDispatch : public Calls, public testing::Test {
protected:
    ObjectDispatch() : Calls(WaysToCall().front()) {}
};

TEST_F(ObjectDispatch, TellsWhatIsWrongWithTheArguments) {
    const CallCase cases[] = {
        {"a required one left out",
         "WithDefaults",
         {LeftOut{}, LONG{2}},
         {},
         DISP_E_PARAMNOTOPTIONAL,
         {},
         1},
        {"a required one not named", "WithDefaults", {LONG{3}}, {1}, DISP_E_PARAMNOTOPTIONAL, {}},
        {"an unknown name", "WithDefaults", {LONG{0}, LONG{1}}, {7}, DISP_E_PARAMNOTFOUND, {}, 0},
        {"the result has no name",
         "WithDefaults",
         {LONG{0}, LONG{1}},
         {6},
         DISP_E_PARAMNOTFOUND,
         {},
         0},
        {"named twice", "WithDefaults", {LONG{0}, LONG{1}}, {0, 0}, DISP_E_PARAMNOTFOUND, {}, 1},
        {"no object at all", "IsSame", {std::monostate()}, {}, S_OK, Bool{0}},
    };
    Check(cases);
}

TEST_F(ObjectDispatch, FillsTheVariablesOfScripts) {
    LONG remainder = 0;
    VARIANT exact{};
    exact.vt = VT_BYREF | VT_I4;
    exact.plVal = &remainder;
    Variant text = ToVariant("old");
    VARIANT any{};
    any.vt = VT_BYREF | VT_VARIANT;
    any.pvarVal = &text;
    const VARIANT divisor = ToVariant(LONG{5});
    const VARIANT zero = ToVariant(LONG{0});
    const VARIANT dividend = ToVariant(LONG{17});

    const LateCall failing(Object(), "Divide", kCall, Raw{{any, exact, zero, dividend}});
    EXPECT_EQ(failing.Status, DISP_E_EXCEPTION);
    EXPECT_EQ(FromVariant(text), Value("old"));

    const LateCall call(Object(), "Divide", kCall, Raw{{any, exact, divisor, dividend}});
    ASSERT_EQ(call.Status, S_OK);
    EXPECT_EQ(FromVariant(text), Value("17/5"));
    EXPECT_EQ(FromVariant(LateCall(Object(), "EchoAny", kCall, Raw{{any}}).Result), Value("17/5"));

    // A value cannot be written to.
    const LateCall wrong(Object(), "Divide", kCall, Raw{{any, dividend, divisor, dividend}});
    EXPECT_EQ(wrong.Status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong.BadArgument, 1U);
}

TEST_F(ObjectDispatch, ChangesTheVariablesOfScripts) {
    const auto variable = [](Variant& value) {
        VARIANT any{};
        any.vt = VT_BYREF | VT_VARIANT;
        any.pvarVal = &value;
        return any;
    };
    Variant values;
    values.parray = SafeArrayCreateVector(VT_I2, 0, 1);
    values.vt = VT_ARRAY | VT_I2;
    Variant count = ToVariant("41");
    Variant text = ToVariant(LONG{5});
    const auto grow = [&](VARIANT array) {
        return LateCall(Object(), "Grow", kCall, Raw{{variable(text), variable(count), array}});
    };
    ASSERT_EQ(grow(variable(values)).Status, S_OK);
    EXPECT_EQ(values.parray->rgsabound[0].cElements, 2U);
    EXPECT_EQ(FromVariant(count), Value(LONG{42}));
    EXPECT_EQ(FromVariant(text), Value("5!"));
    EXPECT_EQ(FromVariant(LateCall(Object(), "Sum", kCall, Raw{{variable(values)}}).Result),
              Value(LONG{7}));

    // What would be lost, or is no array, is refused.
    VARIANT null{};
    null.vt = VT_BYREF | VT_ARRAY | VT_I2;
    VARIANT nothing{};
    nothing.vt = VT_BYREF | VT_VARIANT;
    for (const VARIANT& wrong : {static_cast<VARIANT>(values), variable(count), null, nothing}) {
        const LateCall refused = grow(wrong);
        EXPECT_EQ(refused.Status, DISP_E_TYPEMISMATCH);
        EXPECT_EQ(refused.BadArgument, 2U);
    }
    EXPECT_EQ(FromVariant(count), Value(LONG{42}));
}

TEST_F(ObjectDispatch, RefusesObjectsWithoutTheInterfaceThatIsDescribed) {
    ComPtr<ITypeInfo> other;
    ASSERT_EQ(object_->GetTypeInfo(0, 0, other.Put()), S_OK);
    VARIANT noThing{};
    noThing.vt = VT_UNKNOWN;
    noThing.punkVal = other.Get();
    EXPECT_EQ(LateCall(Object(), "IsSame", kCall, Raw{{noThing}}).Status, DISP_E_TYPEMISMATCH);
}

TEST_F(ObjectDispatch, TakesNoEarlierFailureForTheLatestOne) {
    ASSERT_EQ(thing_->Fail(S_OK, Bstr("stale").Get()), S_OK);
    const LateCall silent(Object(), "Fail", kCall, {LONG{E_FAIL}, ""});
    EXPECT_EQ(silent.Exception.scode, E_FAIL);
    EXPECT_EQ(silent.Exception.bstrDescription, nullptr);
}

TEST_F(ObjectDispatch, SeesThatArgumentsOrTheReservedInterfaceAreNotAsTheyMustBe) {
    DISPPARAMS none{};
    const auto invoke = [&](REFIID reserved, DISPPARAMS* arguments) {
        return object_->Invoke(15, reserved, 0, kCall, arguments, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(IID_IUnknown, &none), DISP_E_UNKNOWNINTERFACE);
    DISPPARAMS broken{nullptr, nullptr, 1, 0};
    EXPECT_EQ(invoke(IID_NULL, &broken), E_INVALIDARG);

    OleString member = ToOle(std::string_view("EchoLong"));
    OleString result = ToOle(std::string_view("Result"));
    LPOLESTR names[] = {member.data(), result.data()};
    DISPID ids[2] = {};
    EXPECT_EQ(object_->GetIDsOfNames(IID_IUnknown, names, 1, 0, ids), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME)
        << "a result is no argument";
}

}  // namespace
}  // namespace mavrin2::tests
