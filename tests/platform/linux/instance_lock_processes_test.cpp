#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "platform/linux/instance_lock.h"
#include "platform/ports.h"
#include "tests/support/child_process.h"
#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace {

using mavrin2::platform::LinuxInstanceLock;
using mavrin2::tests::ChildProcess;
using mavrin2::tests::EnvironmentVariable;
using mavrin2::tests::ScratchFolder;
using mavrin2::tests::Signal;

struct SystemLocks {
    auto New() const { return LinuxInstanceLock({Path, Folder.Path() / "second"}); }

    ScratchFolder Folder;
    std::filesystem::path Path = Folder.Path() / "lock";
};

TEST(InstanceLockOnLinux, SeesOtherProcessesAlsoWhenTheyAreKilled) {
    SystemLocks locks;
    Signal ready;
    ChildProcess other([&] {
        const auto lock = locks.New();
        ready.Give();
        return ::pause();  // for ever
    });
    ASSERT_TRUE(ready.Await());
    const auto lock = locks.New();
    EXPECT_FALSE(lock->TryBecomeSole());
    other.Kill();
    EXPECT_TRUE(lock->TryBecomeSole());
}

TEST(InstanceLockOnLinux, HoldsAnotherProcessBackWhileItIsSole) {
    SystemLocks locks;
    Signal started;
    Signal entered;
    const auto lock = locks.New();
    auto sole = lock->TryBecomeSole();
    ASSERT_TRUE(sole);
    ChildProcess other([&] {
        started.Give();
        const auto mine = locks.New();
        entered.Give();
        // This process has the other's file open too, but not its lock.
        return mine->TryBecomeSole() ? 1 : 0;
    });
    ASSERT_TRUE(started.Await());
    sole.reset();
    ASSERT_TRUE(entered.Await());
    EXPECT_EQ(other.Wait(), 0);
}

TEST(InstanceLockOnLinux, NeverBelievesToBeSoleWithoutItsFiles) {
    SystemLocks locks;
    const auto lock = locks.New();
    std::filesystem::remove(locks.Path);
    EXPECT_FALSE(lock->TryBecomeSole()) << "newcomers lock another file";
    EXPECT_FALSE(LinuxInstanceLock({locks.Path / "below a file"})->TryBecomeSole());
    EXPECT_FALSE(LinuxInstanceLock({})->TryBecomeSole());
}

TEST(InstanceLockOnLinux, SeesAnInstanceThatSharesOnlyOneOfItsFiles) {
    SystemLocks locks;
    const auto lock = locks.New();
    for (const auto& path : {locks.Path, locks.Folder.Path() / "second"}) {
        const auto other = LinuxInstanceLock({path});
        EXPECT_FALSE(lock->TryBecomeSole());
        EXPECT_FALSE(other->TryBecomeSole()) << "nor has the attempt kept a lock";
    }
    EXPECT_TRUE(lock->TryBecomeSole());
}

// Controls of other programs may be alive while this runs, so nothing here becomes sole.
TEST(SystemPorts, ShareOneWorldOfInstancesWhateverTheEnvironmentSays) {
    using Environment = std::vector<std::unique_ptr<EnvironmentVariable>>;
    const auto elsewhere = [](const ScratchFolder& folder) {
        Environment environment;
        for (const char* name : {"TMPDIR", "HOME", "XDG_RUNTIME_DIR", "XDG_CACHE_HOME"})
            environment.push_back(
                std::make_unique<EnvironmentVariable>(name, folder.Path().string()));
        return environment;
    };
    Signal ready;
    const ScratchFolder theirs;
    ChildProcess other([&] {
        const auto environment = elsewhere(theirs);
        const auto lock = mavrin2::platform::SystemPorts().NewInstanceLock();
        ready.Give();
        return ::pause();  // for ever
    });
    ASSERT_TRUE(ready.Await());
    const ScratchFolder ours;
    const auto environment = elsewhere(ours);
    const auto ports = mavrin2::platform::SystemPorts();
    EXPECT_FALSE(ports.NewInstanceLock()->TryBecomeSole());

    testing::internal::CaptureStderr();
    ports.Errors->Show("Caption", "text");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Caption: text\n");
}

}  // namespace
