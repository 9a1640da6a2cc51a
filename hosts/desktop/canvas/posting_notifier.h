#pragma once

#include <QSocketNotifier>
#include <memory>

#include "platform/posting.h"

namespace mavrin2::desktop {

// Runs what other threads post to this one, from the toolkit's event loop.
class PostingNotifier {
public:
    PostingNotifier()
        : queue_(platform::PostingQueue::OfThisThread()),
          notifier_(queue_->Descriptor(), QSocketNotifier::Read) {
        QObject::connect(&notifier_, &QSocketNotifier::activated,
                         [queue = queue_] { queue->Pump(std::chrono::milliseconds(0)); });
    }

private:
    std::shared_ptr<platform::PostingQueue> queue_;
    QSocketNotifier notifier_;
};

}  // namespace mavrin2::desktop
