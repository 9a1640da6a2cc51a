#include <gtest/gtest.h>
#include <poll.h>

#include "platform/posting.h"

namespace {

using mavrin2::platform::PostingQueue;
using std::chrono::milliseconds;

bool IsReadable(const PostingQueue& queue) {
    pollfd descriptor = {queue.Descriptor(), POLLIN, 0};
    return ::poll(&descriptor, 1, 0) == 1;
}

TEST(Posting, ShowsWaitingWorkByItsDescriptor) {
    const auto queue = PostingQueue::OfThisThread();
    EXPECT_FALSE(IsReadable(*queue));
    bool readableWithin = false;
    queue->Post([&] { readableWithin = IsReadable(*queue); });
    queue->Post([] {});
    EXPECT_TRUE(IsReadable(*queue));
    queue->Pump(milliseconds(0));
    EXPECT_TRUE(readableWithin) << "the second still waited then";
    EXPECT_FALSE(IsReadable(*queue));

    auto run = queue->BeginRun();
    run->Poster()([] {});
    EXPECT_TRUE(IsReadable(*queue));
    run.reset();
    EXPECT_FALSE(IsReadable(*queue)) << "nothing waits any more";

    // A piece of work that posts another is run with it waiting; a host's loop comes back for it.
    queue->Post([&] { queue->Post([] {}); });
    queue->Pump(milliseconds(0));
    EXPECT_TRUE(IsReadable(*queue));
    queue->Pump(milliseconds(0));
}

}  // namespace
