#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "platform/linux/instance_lock.h"
#include "platform/memory/memory_instance_locks.h"
#include "platform/ports.h"
#include "tests/support/child_process.h"
#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace {

using mavrin2::platform::InstanceLock;
using mavrin2::platform::LinuxInstanceLock;
using mavrin2::platform::MemoryInstanceLocks;
using mavrin2::tests::ChildProcess;
using mavrin2::tests::EnvironmentVariable;
using mavrin2::tests::ScratchFolder;
using mavrin2::tests::Signal;

class LinuxLocks {
public:
    std::unique_ptr<InstanceLock> New() { return LinuxInstanceLock(Path()); }
    std::filesystem::path Path() const { return folder_.Path() / "lock"; }

private:
    ScratchFolder folder_;
};

template <typename Locks>
class InstanceLocks : public testing::Test {
protected:
    Locks locks_;
};

using Adapters = testing::Types<LinuxLocks, MemoryInstanceLocks>;
TYPED_TEST_SUITE(InstanceLocks, Adapters);

TYPED_TEST(InstanceLocks, LetOneBeSoleWhileItIsTheOnlyOne) {
    const auto first = this->locks_.New();
    EXPECT_TRUE(first->TryBecomeSole());
    auto second = this->locks_.New();
    EXPECT_FALSE(first->TryBecomeSole());
    EXPECT_FALSE(second->TryBecomeSole());
    second.reset();
    EXPECT_TRUE(first->TryBecomeSole());
}

TYPED_TEST(InstanceLocks, KeepTheSharedLockAfterEveryAttempt) {
    const auto first = this->locks_.New();
    const auto second = this->locks_.New();
    // A lost lock would let the other one believe that it is alone.
    EXPECT_FALSE(first->TryBecomeSole());
    EXPECT_FALSE(second->TryBecomeSole());
    EXPECT_FALSE(first->TryBecomeSole());
    auto third = this->locks_.New();
    EXPECT_FALSE(second->TryBecomeSole());
}

TYPED_TEST(InstanceLocks, GiveOneSoleAtATimeAndTakeItBack) {
    const auto lock = this->locks_.New();
    auto sole = lock->TryBecomeSole();
    ASSERT_TRUE(sole);
    EXPECT_FALSE(lock->TryBecomeSole()) << "somebody is at it already";
    sole.reset();
    const auto other = this->locks_.New();
    EXPECT_FALSE(lock->TryBecomeSole());
}

TYPED_TEST(InstanceLocks, MakeANewOneWaitWhileOneIsSole) {
    const auto lock = this->locks_.New();
    auto sole = lock->TryBecomeSole();
    ASSERT_TRUE(sole);
    std::atomic<bool> soleEnded = false;
    std::atomic<bool> cameTooEarly = false;
    std::thread newcomer([&] {
        const auto other = this->locks_.New();
        cameTooEarly = !soleEnded;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    soleEnded = true;
    sole.reset();
    newcomer.join();
    EXPECT_FALSE(cameTooEarly);
}

TEST(InstanceLockOnLinux, SeesOtherProcessesAlsoWhenTheyAreKilled) {
    LinuxLocks locks;
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
    LinuxLocks locks;
    Signal started;
    Signal entered;
    const auto lock = locks.New();
    auto sole = lock->TryBecomeSole();
    ASSERT_TRUE(sole);
    ChildProcess other([&] {
        started.Give();
        const auto mine = LinuxInstanceLock(locks.Path());
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
    LinuxLocks locks;
    const auto lock = locks.New();
    std::filesystem::remove(locks.Path());
    EXPECT_FALSE(lock->TryBecomeSole()) << "those who come now hold another file";
    const auto without = LinuxInstanceLock(locks.Path() / "below a file");
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
