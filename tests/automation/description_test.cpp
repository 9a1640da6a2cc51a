// A description that disagrees with the virtual table or with the plan is found at first use.

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "automation/interface_builder.h"

namespace mavrin2::tests {
namespace {

using automation::In;
using automation::InterfaceBuilder;
using automation::InterfaceDescription;
using automation::Out;
using automation::PlannedMember;
using automation::Result;

struct ISmall : public IDispatch {
    static constexpr IID Id = {
        0x5e1f0020, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
    virtual HRESULT STDMETHODCALLTYPE First(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE Second(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Third(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Third(SHORT Value) = 0;
};

constexpr PlannedMember kPlan[] = {{"First", 1}, {"Between", 2}, {"Second", 9}, {"Third", 4}};

InterfaceBuilder<ISmall> Builder() {
    return {"ISmall", "", kPlan};
}

TEST(Description, TakesIdentifiersFromThePlanWhateverIsDescribedSoFar) {
    const InterfaceDescription description =
        Builder()
            .Method<&ISmall::First>("First", "", In("Value"))
            .Method<&ISmall::Second>("Second", "", Out("Value"))
            .Get<&ISmall::get_Third>("Third", "")
            .Put<&ISmall::put_Third>("Third", "")
            .Build();
    ASSERT_EQ(description.Members.size(), 4U);
    EXPECT_EQ(description.Members[1].Id, 9);
    EXPECT_EQ(description.Members[1].Slot, 8);
    EXPECT_EQ(description.Members[3].Id, description.Members[2].Id);
    EXPECT_EQ(description.Find("second"), &description.Members[1]);
    EXPECT_EQ(description.Find("Between"), nullptr);
    EXPECT_EQ(description.Find(4, INVOKE_PROPERTYPUT), &description.Members[3]);
    EXPECT_EQ(description.Find(4, INVOKE_FUNC), nullptr);
}

TEST(Description, ThrowsWhereItDisagrees) {
    const std::pair<const char*, std::function<void()>> wrong[] = {
        {"a member that nobody planned",
         [] { Builder().Method<&ISmall::First>("Fourth", "", In("Value")); }},
        {"a slot left out", [] { Builder().Method<&ISmall::Second>("Second", "", Out("Value")); }},
        {"slots in another order",
         [] {
             Builder()
                 .Method<&ISmall::Second>("First", "", Out("Value"))
                 .Method<&ISmall::First>("Second", "", In("Value"));
         }},
        {"not in the order of the plan",
         [] {
             Builder()
                 .Method<&ISmall::First>("Second", "", In("Value"))
                 .Method<&ISmall::Second>("First", "", Out("Value"));
         }},
        {"described twice",
         [] {
             Builder()
                 .Method<&ISmall::First>("First", "", In("Value"))
                 .Method<&ISmall::Second>("First", "", Out("Value"));
         }},
        {"a parameter too few", [] { Builder().Method<&ISmall::First>("First", ""); }},
        {"a parameter too many",
         [] { Builder().Method<&ISmall::First>("First", "", In("Value"), In("More")); }},
        {"in that is out", [] { Builder().Method<&ISmall::First>("First", "", Out("Value")); }},
        {"out that is in",
         [] {
             Builder()
                 .Method<&ISmall::First>("First", "", In("Value"))
                 .Method<&ISmall::Second>("Second", "", In("Value"));
         }},
    };
    for (const auto& [what, describe] : wrong)
        EXPECT_THROW(describe(), std::logic_error) << what;

    const bool addresses[] = {true, false};
    const automation::Parameter parameters[] = {Result("Value"), In("Last")};
    EXPECT_THROW(automation::CheckParameterList("M", parameters, addresses), std::logic_error)
        << "a result that does not stand last";
}

}  // namespace
}  // namespace mavrin2::tests
