#pragma once

#include <memory>

#include "platform/files.h"

namespace mavrin2::platform {

// The system's clipboard for sound: the bytes of one WAVE file. On Windows that is the standard
// format 12, CF_WAVE, which other programs read and write. On Linux it is a file in the user's
// runtime folder, which needs no display and is seen by all controls of the user, in any process.
// Used on any thread, one call at a time.
class SoundClipboard {
public:
    virtual ~SoundClipboard() = default;

    enum class PutOutcome {
        Done,
        Unavailable,  // another program has it open, or it has no room for the sound
        NotRead,      // the file is empty or unreadable, or there is no memory for its bytes
    };

    // Replaces the clipboard's content with the bytes of `file`. Other programs see the old content
    // or the whole new one, and the old one stays unless the outcome is Done.
    virtual PutOutcome Put(File& file) = 0;

    // The sound on the clipboard, to be read but not written; null if there is no sound or the
    // clipboard cannot be opened. What comes onto the clipboard later does not change it. On
    // Windows the clipboard is open while the result exists, so release it before other code runs.
    // The length may exceed that of the file that was put there.
    virtual std::unique_ptr<File> Open() = 0;
};

}  // namespace mavrin2::platform
