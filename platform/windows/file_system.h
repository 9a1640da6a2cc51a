#pragma once

#include <memory>

#include "platform/files.h"

namespace mavrin2::platform {

std::shared_ptr<FileSystem> WindowsFileSystem();

}  // namespace mavrin2::platform
