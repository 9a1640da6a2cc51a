#pragma once

#include <functional>
#include <memory>

#include "platform/block_memory.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/error_dialog.h"
#include "platform/files.h"
#include "platform/instance_lock.h"
#include "platform/system_colors.h"
#include "platform/text.h"

namespace mavrin2::platform {

// What one control needs of the system it runs on. Shared by every control of a process; the
// adapters keep no state that a second control could see.
struct Ports {
    std::shared_ptr<FileSystem> Files;
    std::shared_ptr<ErrorDialog> Errors;
    // A lock for one control, waiting while a sole instance cleans up; never null.
    std::function<std::unique_ptr<InstanceLock>()> NewInstanceLock;
    std::shared_ptr<FontLoader> Fonts;
    SystemColors Colors;
    std::shared_ptr<SoundClipboard> Clipboard;
    std::shared_ptr<BlockMemory> Memory = HeapBlockMemory();
    std::shared_ptr<Clock> Time = SystemClock();
};

// The adapters of the running system.
Ports SystemPorts();

}  // namespace mavrin2::platform
