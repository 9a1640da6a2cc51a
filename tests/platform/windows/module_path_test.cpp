#include "platform/module_path.h"

#include <gtest/gtest.h>

#include "platform/automation.h"

namespace {

using mavrin2::platform::PathOfModule;
const int Here = 0;

TEST(ModulePath, TellsProgramsAndLibrariesApart) {
    wchar_t program[MAX_PATH] = {};
    ASSERT_NE(::GetModuleFileNameW(nullptr, program, MAX_PATH), 0U);
    EXPECT_EQ(PathOfModule(&Here), program);
    const auto library = PathOfModule(reinterpret_cast<const void*>(
        ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "memcpy")));
    EXPECT_TRUE(library.is_absolute());
    EXPECT_EQ(library.filename(), L"ntdll.dll");
    EXPECT_EQ(PathOfModule(nullptr), "");
    int onTheStack = 0;
    EXPECT_EQ(PathOfModule(&onTheStack), "");
}

}  // namespace
