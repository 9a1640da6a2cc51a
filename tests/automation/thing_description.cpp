#include "automation/interface_builder.h"
#include "tests/automation/thing.h"

namespace mavrin2::automation {
template <>
const EnumerationDescription& EnumerationOf<tests::ShapeConstants>() {
    static const EnumerationDescription description{
        "ShapeConstants",
        {0x5e1f0005, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}},
        "Shapes of a thing",
        {{"ROUND", 1}, {"SQUARE", 4}, {"SUNKEN", -3}}};
    return description;
}

template <>
const InterfaceDescription& DescriptionOf<tests::ITestThing>() {
    using I = tests::ITestThing;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("ITestThing", "A thing", &tests::TestLibrary)
            .Method<&I::EchoShort>(1, "EchoShort", "", In("Value"), Result("Result"))
            .Method<&I::EchoLong>(2, "EchoLong", "Gives back, any 32 bits", In("Value"),
                                  Result("Result"))
            .Method<&I::EchoFloat>(3, "EchoFloat", "", In("Value"), Result("Result"))
            .Method<&I::EchoDouble>(4, "EchoDouble", "", In("Value"), Result("Result"))
            .Method<&I::EchoText>(5, "EchoText", "", In("Value"), Result("Result"))
            .Method<&I::EchoShape>(6, "EchoShape", "", In("Value"), Result("Result"))
            .Method<&I::EchoBoolean>(7, "EchoBoolean", "", In("Value").Boolean(),
                                     Result("Result").Boolean())
            .Method<&I::EchoAny>(8, "EchoAny", "", In("Value"), Result("Result"))
            .Reserved(1)
            .Method<&I::DoubleAll>(10, "DoubleAll", "", In("Values").ArrayOf(VT_I2),
                                   Result("Result").ArrayOf(VT_I2))
            .Method<&I::Divide>(30, "Divide", "", In("Dividend"), In("Divisor"), Out("Remainder"),
                                Out("Text"), Result("Quotient"))
            .Method<&I::Grow>(11, "Grow", "", InOut("Values").ArrayOf(VT_I2), InOut("Count"),
                              InOut("Text"))
            .Method<&I::Sum>(18, "Sum", "", In("Values").ArrayOf(VT_I2), Result("Result"))
            .Method<&I::WithDefaults>(12, "WithDefaults", "", In("First"), In("Second").Default(7),
                                      In("Third").Boolean().Default(true),
                                      In("Fourth").Default(-2.5), In("Fifth").Default("none"),
                                      In("Sixth").Default(tests::ShapeConstants::SQUARE),
                                      Result("Result"))
            .Method<&I::IsSame>(13, "IsSame", "", In("Other"), Result("Result").Boolean())
            .Method<&I::Fail>(14, "Fail", "", In("Status"), In("Description"))
            .Method<&I::MakeThing>(15, "MakeThing", "", Result("Result"))
            .Method<&I::Fire>(16, "Fire", "", In("Percent"), In("Text"))
            .Method<&I::FireLater>(17, "FireLater", "", In("Percent"), In("Text"))
            .Get<&I::get_Item>(0, "Item", "", In("Index"))
            .Put<&I::put_Item>(0, "Item", "", In("Index"))
            .GetBoolean<&I::get_Enabled>(101, "Enabled", "")
            .PutBoolean<&I::put_Enabled>(101, "Enabled", "")
            .Get<&I::get_Friend>(102, "Friend", "")
            .Put<&I::put_Friend>(102, "Friend", "")
            .PutReference<&I::putref_Friend>(102, "Friend", "")
            .Get<&I::get_FriendBy>(103, "FriendBy", "")
            .Get<&I::get_Alive>(104, "Alive", "")
            .Put<&I::put_Secret>(105, "Secret", "")
            .Build();
    return description;
}

}  // namespace mavrin2::automation

namespace mavrin2::tests {

using automation::DescriptionOf;
using automation::EnumerationOf;

const automation::InterfaceDescription& TestThingEvents() {
    static const automation::InterfaceDescription description =
        automation::EventsBuilder("_ITestThingEvents", DIID_TestThingEvents, "What a thing reports",
                                  &TestLibrary)
            .Event(event::Progress, "Progress", "0 ... 100",
                   {{"Percent", VT_I2}, {"Text", VT_BSTR}})
            .Event(event::Done, "Done", "")
            .Build();
    return description;
}

const automation::LibraryDescription& TestLibrary() {
    static const automation::LibraryDescription library{
        "TestLib",
        LIBID_Test,
        3,
        1,
        "Library of the tests",
        {&EnumerationOf<ShapeConstants>},
        {&DescriptionOf<ITestThing>, &TestThingEvents},
        {{"TestThing", CLSID_TestThing, "A class", &DescriptionOf<ITestThing>, &TestThingEvents}}};
    return library;
}

}  // namespace mavrin2::tests
