// What every component registry has to keep to.

#include <gtest/gtest.h>

#include "platform/component_registry.h"
#include "tests/support/scratch_registry.h"

namespace {

using mavrin2::platform::RegistryChange;
using mavrin2::platform::SystemComponentRegistry;
using Kind = RegistryChange::Kind;

HRESULT Apply(std::initializer_list<RegistryChange> changes) {
    const std::vector<RegistryChange> list(changes);
    return SystemComponentRegistry()->Apply(list);
}

HRESULT Set(std::u16string key, std::u16string value, std::u16string name = {}) {
    return Apply({{Kind::SetValue, std::move(key), std::move(name), std::move(value)}});
}

std::u16string Get(std::u16string_view key, std::u16string_view name = {}) {
    return SystemComponentRegistry()->Value(key, name).value_or(u"(none)");
}

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
