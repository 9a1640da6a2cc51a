#pragma once

#include "control/editor/edit_operations.h"
#include "platform/clipboard.h"
#include "platform/error_dialog.h"

namespace mavrin2::editor {

// Exchange of sound with other programs, through the system's clipboard. Both ways go through
// files: the editor's own clip file out, a file beside it in.
class ClipboardExchange {
public:
    ClipboardExchange(const Document& document, const Operation& operation, const Storage& storage,
                      EditOperations& edits, platform::SoundClipboard& clipboard,
                      platform::ErrorDialog& errors)
        : document_(document),
          operation_(operation),
          storage_(storage),
          edits_(edits),
          clipboard_(clipboard),
          errors_(errors) {}

    // Copies the selection and offers the clip file to other programs. Without a selection that is
    // the clip file of an earlier copy. A clipboard that is not available is reported to the user.
    void CopyToClipboard();
    // Pastes the sound of another program, in any format that the file companion reads. Nothing
    // happens when there is none.
    void PasteFromClipboard();

private:
    // The clipboard's sound as a file; an empty path without sound or when it cannot be written.
    std::filesystem::path TakeSound();

    Document document_;
    Operation operation_;
    Storage storage_;
    EditOperations& edits_;
    platform::SoundClipboard& clipboard_;
    platform::ErrorDialog& errors_;
};

}  // namespace mavrin2::editor
