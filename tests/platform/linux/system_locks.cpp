#include "tests/platform/system_locks.h"

#include "platform/linux/instance_lock.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::tests {

struct SystemLocks::Place {
    ScratchFolder Folder;
};

SystemLocks::SystemLocks() : place_(std::make_unique<Place>()) {}
SystemLocks::~SystemLocks() = default;

std::unique_ptr<platform::InstanceLock> SystemLocks::New() {
    return platform::LinuxInstanceLock({place_->Folder.Path() / "lock"});
}

}  // namespace mavrin2::tests
