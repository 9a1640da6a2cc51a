#include "tests/platform/system_locks.h"

#include "platform/automation.h"
#include "platform/windows/instance_lock.h"

namespace mavrin2::tests {

struct SystemLocks::Place {
    std::wstring Name = L"MavrinTest." + std::to_wstring(::GetCurrentProcessId()) + L"." +
                        std::to_wstring(reinterpret_cast<std::uintptr_t>(this));
};

SystemLocks::SystemLocks() : place_(std::make_unique<Place>()) {}
SystemLocks::~SystemLocks() = default;

std::unique_ptr<platform::InstanceLock> SystemLocks::New() {
    return platform::WindowsInstanceLock(place_->Name);
}

}  // namespace mavrin2::tests
