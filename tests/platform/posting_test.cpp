#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

#include "platform/posting.h"

namespace {

using mavrin2::platform::PostingQueue;
using std::chrono::milliseconds;

// Long enough for any machine; a test that passes does not wait for it.
constexpr milliseconds Patience{20000};

TEST(Posting, RunsWorkOfOtherThreadsHereInTheirOrder) {
    const auto queue = PostingQueue::OfThisThread();
    ASSERT_EQ(queue, PostingQueue::OfThisThread());
    constexpr int senders = 4;
    constexpr int works = 500;
    std::vector<std::vector<int>> received(senders);
    const auto here = std::this_thread::get_id();
    int elsewhere = 0;
    std::vector<std::thread> threads;
    for (int sender = 0; sender < senders; ++sender) {
        threads.emplace_back([&, sender] {
            for (int i = 0; i < works; ++i) {
                queue->Post([&, sender, i] {
                    elsewhere += std::this_thread::get_id() != here;
                    received[sender].push_back(i);
                });
            }
        });
    }
    queue->Pump(milliseconds(1));
    for (auto& thread : threads)
        thread.join();
    queue->Pump(milliseconds(0));
    EXPECT_EQ(elsewhere, 0);
    for (const auto& numbers : received) {
        ASSERT_EQ(numbers.size(), static_cast<std::size_t>(works));
        EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    }
}

TEST(Posting, WakesAPumpThatWaits) {
    const auto queue = PostingQueue::OfThisThread();
    std::thread sender;
    bool ran = false;
    queue->Post([&] { sender = std::thread([&] { queue->Post([&] { ran = true; }); }); });
    const auto end = std::chrono::steady_clock::now() + Patience;
    while (!ran && std::chrono::steady_clock::now() < end)
        queue->Pump(milliseconds(20));
    sender.join();
    EXPECT_TRUE(ran);
}

TEST(Posting, GoesOnAfterAnExceptionAndEndsThoughWorkPostsWork) {
    const auto queue = PostingQueue::OfThisThread();
    std::vector<int> order;
    queue->Post([] { throw std::runtime_error("of no interest"); });
    queue->Post([&] {
        order.push_back(1);
        queue->Post([&] { order.push_back(3); });
    });
    queue->Post([&] { order.push_back(2); });
    queue->Pump(milliseconds(0));
    EXPECT_EQ(order, (std::vector{1, 2})) << "only what was there";
    queue->Pump(milliseconds(0));
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST(Posting, KeepsTheOrderInAPumpWithinAPump) {
    const auto queue = PostingQueue::OfThisThread();
    std::vector<int> order;
    queue->Post([&] {
        order.push_back(1);
        queue->Pump(milliseconds(0));
        order.push_back(4);
    });
    queue->Post([&] { order.push_back(2); });
    queue->Post([&] { order.push_back(3); });
    queue->Pump(milliseconds(0));
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4}));
}

TEST(Posting, DropsWorkForAThreadThatHasEnded) {
    std::shared_ptr<PostingQueue> queue;
    const auto token = std::make_shared<int>(0);
    std::atomic<bool> ran = false;
    std::thread owner([&] {
        queue = PostingQueue::OfThisThread();
        queue->Post([token, &ran] { ran = true; });
    });
    owner.join();
    EXPECT_EQ(token.use_count(), 1) << "what was left is gone";
    queue->Post([token, &ran] { ran = true; });
    EXPECT_EQ(token.use_count(), 1);
    queue->Pump(milliseconds(0));
    EXPECT_FALSE(ran);
    EXPECT_NE(queue, PostingQueue::OfThisThread());
}

TEST(Posting, DropsTheWorkOfARunThatHasEnded) {
    const auto queue = PostingQueue::OfThisThread();
    const auto token = std::make_shared<int>(0);
    std::vector<int> order;
    auto run = queue->BeginRun();
    const auto other = queue->BeginRun();
    const auto post = run->Poster();
    queue->Post([&] { order.push_back(1); });
    post([&order, token] { order.push_back(2); });
    other->Poster()([&] { order.push_back(3); });
    queue->Pump(milliseconds(0));
    EXPECT_EQ(order, (std::vector{1, 2, 3}));

    post([&order, token] { order.push_back(4); });
    other->Poster()([&] { order.push_back(5); });
    run.reset();
    EXPECT_EQ(token.use_count(), 1) << "what waited is gone";
    std::thread([&] { post([&order, token] { order.push_back(6); }); }).join();
    EXPECT_EQ(token.use_count(), 1) << "and what comes late";
    queue->Pump(milliseconds(0));
    EXPECT_EQ(order, (std::vector{1, 2, 3, 5}));
}

// As a host does that stops a device from inside one of its events.
TEST(Posting, EndsARunFromWithinItsWork) {
    const auto queue = PostingQueue::OfThisThread();
    auto run = queue->BeginRun();
    const auto post = run->Poster();
    std::vector<int> order;
    post([&] {
        run.reset();
        order.push_back(1);
    });
    post([&] { order.push_back(2); });
    queue->Post([&] { order.push_back(3); });
    queue->Pump(milliseconds(0));
    EXPECT_EQ(order, (std::vector{1, 3}));
}

}  // namespace
