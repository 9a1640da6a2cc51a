// What every component registry has to keep to.

#include <gtest/gtest.h>

#include "tests/platform/registry_calls.h"
#include "tests/support/scratch_registry.h"

namespace {

using mavrin2::platform::RegistryChange;
using mavrin2::tests::Apply;
using mavrin2::tests::Get;
using mavrin2::tests::Set;
using Kind = RegistryChange::Kind;

class Registry : public testing::Test {
    mavrin2::tests::ScratchRegistry scratch_;
};

TEST_F(Registry, KeepsValuesOfEveryKindUnderNamesInAnyCase) {
    const std::u16string difficult = u"\U0001D11E \"quoted\" back\\slash\nnext line\t# [x] = y ";
    ASSERT_EQ(Set(u"CLSID\\{A}", difficult), S_OK);
    ASSERT_EQ(Set(u"CLSID\\{A}", u"Apartment", u"ThreadingModel"), S_OK);
    ASSERT_EQ(Set(u"CLSID\\{A}", u"odd", u"a \"name\" = [odd]"), S_OK);
    EXPECT_EQ(Get(u"clsid\\{a}"), difficult);
    EXPECT_EQ(Get(u"CLSID\\{A}", u"threadingMODEL"), u"Apartment");
    EXPECT_EQ(Get(u"CLSID\\{A}", u"A \"name\" = [odd]"), u"odd");
    EXPECT_EQ(Get(u"CLSID\\{A}", u"other"), u"(none)");
    EXPECT_EQ(Get(u"CLSID"), u"(none)");
}

TEST_F(Registry, RemovesAKeyWithWhatIsBelowAndNothingElse) {
    ASSERT_EQ(Set(u"A", u"1"), S_OK);
    ASSERT_EQ(Set(u"A\\B\\C", u"2"), S_OK);
    ASSERT_EQ(Set(u"AB", u"3"), S_OK);
    ASSERT_EQ(Apply({{Kind::ReplaceKey, u"a", {}, {}}, {Kind::SetValue, u"A", u"new", u"4"}}),
              S_OK);
    EXPECT_EQ(Get(u"A"), u"(none)");
    EXPECT_EQ(Get(u"A", u"new"), u"4");
    EXPECT_EQ(Get(u"A\\B\\C"), u"(none)");
    EXPECT_EQ(Get(u"AB"), u"3");
    EXPECT_EQ(Apply({{Kind::RemoveKey, u"A", {}, {}}, {Kind::RemoveKey, u"never", {}, {}}}), S_OK);
    EXPECT_EQ(Get(u"A", u"new"), u"(none)");
}

TEST_F(Registry, StopsAtTheFirstChangeThatFails) {
    EXPECT_EQ(Apply({{Kind::SetValue, u"A", {}, u"1"},
                     {Kind::SetValue, u"", {}, u"2"},
                     {Kind::SetValue, u"B", {}, u"3"}}),
              E_INVALIDARG);
    EXPECT_EQ(Get(u"A"), u"1");
    EXPECT_EQ(Get(u"B"), u"(none)");
    for (const std::u16string wrong : {u"\\A", u"A\\", u"A\\\\B", u"A\nB"}) {
        EXPECT_EQ(Set(wrong, u"x"), E_INVALIDARG);
    }
}

}  // namespace
