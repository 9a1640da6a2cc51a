// The library that the compiler made of the descriptions, held against the descriptions.

#include <gtest/gtest.h>

#include "automation/type_library.h"
#include "platform/module_type_library.h"
#include "tests/automation/thing.h"
#include "tests/automation/type_texts.h"

namespace mavrin2::tests {
namespace {

using automation::ComPtr;

const int kHere = 0;

TEST(CompiledLibrary, SaysOfEveryMemberWhatItsDescriptionSays) {
    ComPtr<ITypeLib> compiled;
    ASSERT_EQ(platform::LoadModuleTypeLibrary(&kHere, compiled.Put()), S_OK);
    EXPECT_EQ(LibraryTexts(*compiled), LibraryTexts(*automation::MakeTypeLibrary(TestLibrary())));
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(compiled->GetLibAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, LIBID_Test));
    EXPECT_EQ(attributes->wMajorVerNum, 3);
    EXPECT_EQ(attributes->wMinorVerNum, 1);
    compiled->ReleaseTLibAttr(attributes);
}

TEST(CompiledLibrary, IsWhatObjectsTellOfThemselves) {
    const auto object = TestThing::Make().As<IDispatch>();
    ComPtr<ITypeInfo> own;
    ASSERT_EQ(object->GetTypeInfo(0, 0, own.Put()), S_OK);
    ComPtr<ITypeLib> library;
    UINT place = 0;
    ASSERT_EQ(own->GetContainingTypeLib(library.Put(), &place), S_OK);
    ComPtr<ITypeLib> compiled;
    ASSERT_EQ(platform::LoadModuleTypeLibrary(&kHere, compiled.Put()), S_OK);
    EXPECT_EQ(library.Get(), compiled.Get()) << "the system keeps one of each";
}

TEST(CompiledLibrary, IsMissingWhereAModuleHasNone) {
    ComPtr<ITypeLib> none;
    const void* const elsewhere =
        reinterpret_cast<const void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "memcpy"));
    EXPECT_TRUE(FAILED(platform::LoadModuleTypeLibrary(elsewhere, none.Put())));
    EXPECT_FALSE(none);
    EXPECT_TRUE(FAILED(platform::RegisterModuleTypeLibrary(elsewhere)));
}

}  // namespace
}  // namespace mavrin2::tests
