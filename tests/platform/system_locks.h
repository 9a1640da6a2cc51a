#pragma once

#include <memory>

#include "platform/instance_lock.h"

namespace mavrin2::tests {

// The locks of one world, which no other test and no real control sees.
class SystemLocks {
public:
    SystemLocks();
    ~SystemLocks();
    SystemLocks(const SystemLocks&) = delete;
    SystemLocks& operator=(const SystemLocks&) = delete;

    std::unique_ptr<platform::InstanceLock> New();

private:
    struct Place;
    std::unique_ptr<Place> place_;
};

}  // namespace mavrin2::tests
