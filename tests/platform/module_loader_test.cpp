// What every loader of modules has to do.

#include "platform/module_loader.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_module_loader.h"
#include "tests/support/scratch_folder.h"

namespace {

using mavrin2::platform::MemoryModuleLoader;
using mavrin2::platform::ModuleLoader;

void TestEntry() {}

// A module that is there, with a function that it exports.
struct SystemModules {
    std::shared_ptr<ModuleLoader> Loader = mavrin2::platform::SystemModuleLoader();
    std::filesystem::path Path = MAVRIN2_TEST_MODULE;
    const char* Entry = MAVRIN2_TEST_ENTRY;
};

struct MemoryModules {
    MemoryModules() {
        auto memory = std::make_shared<MemoryModuleLoader>();
        memory->Add(Path, Entry, &TestEntry);
        Loader = std::move(memory);
    }
    std::shared_ptr<ModuleLoader> Loader;
    std::filesystem::path Path = std::filesystem::absolute("/modules/one");
    const char* Entry = "Entry";
};

template <typename World>
class ModuleLoaders : public testing::Test {
protected:
    World world_;
    std::string reason_;
};

using Worlds = testing::Types<SystemModules, MemoryModules>;
TYPED_TEST_SUITE(ModuleLoaders, Worlds);

TYPED_TEST(ModuleLoaders, FindFunctionsThatOutliveTheModulesObject) {
    const auto& world = this->world_;
    auto module = world.Loader->Load(world.Path, this->reason_);
    ASSERT_TRUE(module) << this->reason_;
    EXPECT_EQ(module->Find("no function of that name"), nullptr);
    const auto function = module->Find(world.Entry);
    ASSERT_NE(function, nullptr);
    module.reset();
    EXPECT_EQ(world.Loader->Load(world.Path, this->reason_)->Find(world.Entry), function)
        << "the same module";
    EXPECT_EQ(this->reason_, "");
}

TYPED_TEST(ModuleLoaders, SayWhyAModuleCannotBeLoaded) {
    const mavrin2::tests::ScratchFolder folder;
    const auto missing = folder.Path() / "missing.so";
    EXPECT_FALSE(this->world_.Loader->Load(missing, this->reason_));
    EXPECT_NE(this->reason_.find("missing.so"), std::string::npos) << this->reason_;
    this->reason_.clear();
    EXPECT_FALSE(this->world_.Loader->Load(this->world_.Path.filename(), this->reason_))
        << "nothing is looked for elsewhere";
    EXPECT_NE(this->reason_, "");
}

}  // namespace
