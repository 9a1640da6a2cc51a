#pragma once

#include <filesystem>
#include <memory>

#include "platform/instance_lock.h"

namespace mavrin2::platform {

// A lock of one control on this file, made where it is missing. Waits while another holder is
// alone. Where the file cannot be had the result never is.
std::unique_ptr<InstanceLock> LinuxInstanceLock(const std::filesystem::path& path);

}  // namespace mavrin2::platform
