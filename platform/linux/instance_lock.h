#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/instance_lock.h"

namespace mavrin2::platform {

// The files that every process of this user locks, whatever its environment says: one in the
// private folder in /tmp, and one in /run/user where the system has such a folder for the user.
// Two, because either may be missing for some of the user's processes: services may have a /tmp of
// their own, cleaners empty it, and /run/user/… comes and goes with logins. No other user can take
// their names.
std::vector<std::filesystem::path> InstanceLockFiles();

// A lock of one control on all of these files, created where they are missing. Waits while another
// holder is sole. Never becomes sole if there are no files or one of them cannot be opened.
std::unique_ptr<InstanceLock> LinuxInstanceLock(const std::vector<std::filesystem::path>& files);

}  // namespace mavrin2::platform
