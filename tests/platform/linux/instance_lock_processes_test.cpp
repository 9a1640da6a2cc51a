#include <gtest/gtest.h>

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
    auto New() const { return LinuxInstanceLock(Path); }

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
        const auto mine = LinuxInstanceLock(locks.Path);
        entered.Give();
        // This process has the other's file open too, but not its lock.
        return mine->TryBecomeSole() ? 1 : 0;
    });
    ASSERT_TRUE(started.Await());
    sole.reset();
    ASSERT_TRUE(entered.Await());
    EXPECT_EQ(other.Wait(), 0);
}

TEST(InstanceLockOnLinux, NeverBelievesToBeSoleWithoutItsFile) {
    SystemLocks locks;
    const auto lock = locks.New();
    std::filesystem::remove(locks.Path);
    EXPECT_FALSE(lock->TryBecomeSole()) << "those who come now hold another file";
    const auto without = LinuxInstanceLock(locks.Path / "below a file");
    EXPECT_FALSE(without->TryBecomeSole());
    EXPECT_FALSE(LinuxInstanceLock("")->TryBecomeSole());
}

TEST(SystemPorts, ShareOneWorldOfInstancesPerTemporaryFolder) {
    const ScratchFolder folder;
    const EnvironmentVariable variable("TMPDIR", folder.Path().string());
    const auto ports = mavrin2::platform::SystemPorts();
    const auto first = ports.NewInstanceLock();
    EXPECT_TRUE(first->TryBecomeSole());
    const auto second = mavrin2::platform::SystemPorts().NewInstanceLock();
    EXPECT_FALSE(first->TryBecomeSole());

    testing::internal::CaptureStderr();
    ports.Errors->Show("Caption", "text");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Caption: text\n");
}

}  // namespace
