#include "platform/module_path.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace {

using mavrin2::platform::PathOfModule;
const int Here = 0;

TEST(ModulePath, TellsProgramsAndLibrariesApart) {
    EXPECT_EQ(PathOfModule(&Here), std::filesystem::read_symlink("/proc/self/exe"));
    void* const library = ::dlopen(MAVRIN2_TEST_NO_COMPONENT, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr);
    const auto path = PathOfModule(::dlsym(library, "NoEntryPoint"));
    EXPECT_TRUE(path.is_absolute());
    EXPECT_TRUE(std::filesystem::equivalent(path, MAVRIN2_TEST_NO_COMPONENT));
    ::dlclose(library);
    int onTheStack = 0;
    EXPECT_EQ(PathOfModule(&onTheStack), "");
}

}  // namespace
