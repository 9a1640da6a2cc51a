#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "platform/memory/memory_instance_locks.h"
#include "tests/platform/system_locks.h"

namespace {

using mavrin2::platform::MemoryInstanceLocks;
using mavrin2::tests::SystemLocks;

template <typename Locks>
class InstanceLocks : public testing::Test {
protected:
    Locks locks_;
};

using Adapters = testing::Types<SystemLocks, MemoryInstanceLocks>;
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
    EXPECT_FALSE(lock->TryBecomeSole()) << "another one is trying already";
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

}  // namespace
