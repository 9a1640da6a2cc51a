#pragma once

#include <memory>

#include "platform/memory/fake_clock.h"
#include "platform/memory/fixed_fonts.h"
#include "platform/memory/memory_clipboard.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_instance_locks.h"
#include "platform/memory/recording_error_dialog.h"
#include "platform/memory/refusing_memory.h"
#include "platform/ports.h"

namespace mavrin2::platform {

// The whole system of a test: hand `AsPorts()` to what is tested, keep this to look at the rest.
struct MemoryPorts {
    std::shared_ptr<MemoryFileSystem> Files = std::make_shared<MemoryFileSystem>();
    std::shared_ptr<RecordingErrorDialog> Errors = std::make_shared<RecordingErrorDialog>();
    MemoryInstanceLocks Locks;
    std::shared_ptr<FixedFonts> Fonts = std::make_shared<FixedFonts>();
    std::shared_ptr<RefusingMemory> Memory = std::make_shared<RefusingMemory>();
    SystemColors Colors = {.ButtonFace = 0xC8D0D4, .Highlight = 0xFFFFFF, .Shadow = 0x808080};
    std::shared_ptr<MemoryClipboard> Clipboard = std::make_shared<MemoryClipboard>();
    std::shared_ptr<FakeClock> Time = std::make_shared<FakeClock>();

    Ports AsPorts() const {
        return {Files,  Errors, [locks = Locks]() mutable { return locks.New(); },
                Fonts,  Colors, Clipboard,
                Memory, Time};
    }
};

}  // namespace mavrin2::platform
