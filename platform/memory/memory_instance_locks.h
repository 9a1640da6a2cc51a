#pragma once

#include <memory>

#include "platform/instance_lock.h"

namespace mavrin2::platform {

// The instances in a test's own world: locks made here see each other only. Any
// thread; locks may outlive this. `New` waits while one of them is sole, as the ports do.
class MemoryInstanceLocks {
public:
    MemoryInstanceLocks();

    std::unique_ptr<InstanceLock> New();

    // How many locks there are now.
    int Alive() const;

private:
    struct World;
    class Lock;
    class MemorySole;

    std::shared_ptr<World> world_;
};

}  // namespace mavrin2::platform
