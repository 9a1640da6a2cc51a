#include "automation/interface_builder.h"
#include "tests/automation/thing.h"

namespace mavrin2::automation {
namespace {

// With members that are not described yet, and identifiers in no order.
constexpr PlannedMember kMembers[] = {
    {"EchoShort", 1},  {"EchoLong", 2},      {"EchoFloat", 3}, {"EchoDouble", 4}, {"EchoText", 5},
    {"EchoShape", 6},  {"EchoBoolean", 7},   {"EchoAny", 8},   {"LaterOne", 9},   {"DoubleAll", 10},
    {"Divide", 30},    {"WithDefaults", 12}, {"IsSame", 13},   {"Fail", 14},      {"MakeThing", 15},
    {"Fire", 16},      {"FireLater", 17},    {"Item", 0},      {"Enabled", 101},  {"Friend", 102},
    {"FriendBy", 103}, {"Alive", 104},       {"Secret", 105}};
constexpr PlannedMember kEvents[] = {
    {"Progress", tests::event::Progress}, {"Between", 2}, {"Done", tests::event::Done}};

}  // namespace

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
        InterfaceBuilder<I>("ITestThing", "A thing", kMembers, &tests::TestLibrary)
            .Method<&I::EchoShort>("EchoShort", "", In("Value"), Result("Result"))
            .Method<&I::EchoLong>("EchoLong", "Gives back, any 32 bits", In("Value"),
                                  Result("Result"))
            .Method<&I::EchoFloat>("EchoFloat", "", In("Value"), Result("Result"))
            .Method<&I::EchoDouble>("EchoDouble", "", In("Value"), Result("Result"))
            .Method<&I::EchoText>("EchoText", "", In("Value"), Result("Result"))
            .Method<&I::EchoShape>("EchoShape", "", In("Value"), Result("Result"))
            .Method<&I::EchoBoolean>("EchoBoolean", "", In("Value").Boolean(),
                                     Result("Result").Boolean())
            .Method<&I::EchoAny>("EchoAny", "", In("Value"), Result("Result"))
            .Method<&I::DoubleAll>("DoubleAll", "", In("Values").ArrayOf(VT_I2),
                                   Result("Result").ArrayOf(VT_I2))
            .Method<&I::Divide>("Divide", "", In("Dividend"), In("Divisor"), Out("Remainder"),
                                Out("Text"), Result("Quotient"))
            .Method<&I::WithDefaults>("WithDefaults", "", In("First"), In("Second").Default(7),
                                      In("Third").Boolean().Default(VARIANT_TRUE), Result("Result"))
            .Method<&I::IsSame>("IsSame", "", In("Other"), Result("Result").Boolean())
            .Method<&I::Fail>("Fail", "", In("Status"), In("Description"))
            .Method<&I::MakeThing>("MakeThing", "", Result("Result"))
            .Method<&I::Fire>("Fire", "", In("Percent"), In("Text"))
            .Method<&I::FireLater>("FireLater", "", In("Percent"), In("Text"))
            .Get<&I::get_Item>("Item", "", In("Index"))
            .Put<&I::put_Item>("Item", "", In("Index"))
            .GetBoolean<&I::get_Enabled>("Enabled", "")
            .PutBoolean<&I::put_Enabled>("Enabled", "")
            .Get<&I::get_Friend>("Friend", "")
            .Put<&I::put_Friend>("Friend", "")
            .PutReference<&I::putref_Friend>("Friend", "")
            .Get<&I::get_FriendBy>("FriendBy", "")
            .Get<&I::get_Alive>("Alive", "")
            .Put<&I::put_Secret>("Secret", "")
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
                                  automation::kEvents, &TestLibrary)
            .Event("Progress", "0 ... 100", {{"Percent", VT_I2}, {"Text", VT_BSTR}})
            .Event("Done", "")
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
