#pragma once

#include <QClipboard>

#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

// Exchange of sound with other programs, and with other windows, through the screen's clipboard.
class SoundClipboard {
public:
    explicit SoundClipboard(Editor& editor);

    // Offer the selection to other programs.
    void Copy();
    void Cut();
    void Paste();
    // Whether there is sound to paste.
    bool HasSound() const;

private:
    // Has the control write the selection to a new file, and offers that.
    void Offer(const char* member);

    Editor& editor_;
    QClipboard& clipboard_;
};

}  // namespace mavrin2::desktop
