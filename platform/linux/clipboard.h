#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/clipboard.h"

namespace mavrin2::platform {

// The files that hold the user's clipboard: in the runtime folder ($XDG_RUNTIME_DIR, or the one in
// /run/user, whichever is the user's alone), then in the private folder in /tmp for what the first
// has no room for, as it often is in memory.
std::vector<std::filesystem::path> ClipboardFiles();

// A clipboard in the first of these files that takes the sound; the others are removed then. Files
// are replaced by renaming, so that what is open stays whole.
std::shared_ptr<SoundClipboard> LinuxClipboard(std::vector<std::filesystem::path> files);

}  // namespace mavrin2::platform
