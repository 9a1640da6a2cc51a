#pragma once

#include <memory>

#include "platform/files.h"

namespace mavrin2::platform {

std::shared_ptr<FileSystem> LinuxFileSystem();

}  // namespace mavrin2::platform
