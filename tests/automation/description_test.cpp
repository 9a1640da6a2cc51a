// A description that does not fit its interface does not compile, or is found at first use.

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "automation/interface_builder.h"

namespace mavrin2::tests {
namespace {

using automation::Describes;
using automation::In;
using automation::InOut;
using automation::InterfaceBuilder;
using automation::InterfaceDescription;
using automation::Out;
using automation::Result;

struct ISmall : public IDispatch {
    static constexpr IID Id = {
        0x5e1f0020, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
    virtual HRESULT STDMETHODCALLTYPE First(LONG Value) = 0;
    MAVRIN2_RESERVED(Between, 2)
    virtual HRESULT STDMETHODCALLTYPE Second(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Third(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Third(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE Fourth(SAFEARRAY* In, SAFEARRAY** Out) = 0;
    virtual HRESULT STDMETHODCALLTYPE Fifth(BSTR Text, FLOAT Real, LONG Number) = 0;
    virtual HRESULT STDMETHODCALLTYPE Sixth(IDispatch** Object) = 0;
};

template <auto Function, class... Parameters>
constexpr bool Fit(Parameters...) {
    return Describes<Function, Parameters...>;
}
constexpr auto kArray = In("").ArrayOf(VT_I2);

static_assert(Fit<&ISmall::First>(In("")) && !Fit<&ISmall::First>());
static_assert(!Fit<&ISmall::First>(In(""), In("")));
static_assert(!Fit<&ISmall::First>(Out("")) && !Fit<&ISmall::First>(InOut("")));
static_assert(!Fit<&ISmall::Second>(In("")) && Fit<&ISmall::Second>(InOut("")));
static_assert(!Fit<&ISmall::First>(kArray) && !Fit<&ISmall::First>(In("").Boolean()));
static_assert(Fit<&ISmall::put_Third>(In("").Boolean()));
static_assert(Fit<&ISmall::Fourth>(kArray, Result("").ArrayOf(VT_I2)));
static_assert(Fit<&ISmall::Fourth>(kArray, kArray), "by its address, not changed");
static_assert(!Fit<&ISmall::Fourth>(In(""), Result("").ArrayOf(VT_I2)), "of what?");
static_assert(!Fit<&ISmall::Fourth>(Result("").ArrayOf(VT_I2), kArray), "the result comes last");
static_assert(!Fit<&ISmall::Fourth>(kArray, Out("")));
static_assert(Fit<&ISmall::Sixth>(Out("")) && !Fit<&ISmall::Sixth>(InOut("")));
static_assert(Fit<&ISmall::Fifth>(In("").Default("x"), In("").Default(1.5), In("").Default(1)));
static_assert(!Fit<&ISmall::Fifth>(In("").Default(1), In(""), In("")));
static_assert(!Fit<&ISmall::Fifth>(In(""), In("").Default("x"), In("")));
static_assert(!Fit<&ISmall::Fifth>(In(""), In(""), In("").Default(1.5)));
static_assert(!Fit<&ISmall::Second>(InOut("").Default(1)), "there would be no variable to change");

InterfaceBuilder<ISmall> Builder() {
    return {"ISmall", ""};
}
auto& WithFirst(InterfaceBuilder<ISmall>&& builder) {
    return builder.Method<&ISmall::First>(1, "First", "", In("Value"));
}

TEST(Description, FindsMembersByNameAndByIdentifierAndKind) {
    InterfaceBuilder<ISmall> builder = Builder();
    const InterfaceDescription description =
        builder.Method<&ISmall::First>(1, "First", "", In("Value"))
            .Reserved(1)
            .Method<&ISmall::Second>(9, "Second", "", Out("Value"))
            .Property<&ISmall::get_Third, &ISmall::put_Third>(4, "Third", "")
            .Build();
    ASSERT_EQ(description.Members.size(), 4U);
    EXPECT_EQ(description.Members[1].Slot, 9);
    EXPECT_EQ(description.SlotCount(), 12U);
    EXPECT_EQ(description.Find("second"), &description.Members[1]);
    EXPECT_EQ(description.Find("Between"), nullptr);
    EXPECT_EQ(description.Find(4, INVOKE_PROPERTYPUT), &description.Members[3]);
    EXPECT_EQ(description.Find(4, INVOKE_FUNC), nullptr);
}

TEST(Description, ThrowsWhereItDisagrees) {
    const std::pair<const char*, std::function<void()>> wrong[] = {
        {"a slot left out",
         [] { Builder().Method<&ISmall::Second>(2, "Second", "", Out("Value")); }},
        {"a reserved slot left out",
         [] { WithFirst(Builder()).Method<&ISmall::Second>(2, "Second", "", Out("Value")); }},
        {"described twice",
         [] { WithFirst(Builder()).Method<&ISmall::First>(1, "First", "", In("Value")); }},
        {"two names of one identifier",
         [] {
             WithFirst(Builder()).Reserved(1).Method<&ISmall::Second>(1, "Second", "",
                                                                      Out("Value"));
         }},
        {"two identifiers of one name",
         [] {
             WithFirst(Builder()).Reserved(1).Method<&ISmall::Second>(2, "First", "", Out("Value"));
         }},
        {"a default too large",
         [] {
             WithFirst(Builder())
                 .Reserved(2)
                 .Get<&ISmall::get_Third>(3, "Third", "")
                 .Method<&ISmall::put_Third>(4, "Put", "", In("Value").Default(70000));
         }},
    };
    for (const auto& [what, describe] : wrong)
        EXPECT_THROW(describe(), std::logic_error) << what;
}

}  // namespace
}  // namespace mavrin2::tests
