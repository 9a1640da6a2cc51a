#pragma once

#include <memory>
#include <string>

#include "platform/instance_lock.h"

namespace mavrin2::platform {

// Those of one name, a fixed text of the product, know of each other, in whatever session their
// user has logged in; where the system does not tell who that is, in one session.
std::unique_ptr<InstanceLock> WindowsInstanceLock(const std::wstring& name);

}  // namespace mavrin2::platform
