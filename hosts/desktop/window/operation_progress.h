#pragma once

#include <QProgressDialog>

#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

// Progress of an operation that takes more than a moment, with a button to stop it. While it is
// visible the window takes no other input.
class OperationProgress final : public QProgressDialog {
public:
    OperationProgress(Editor& editor, QWidget& window);

private:
    void Show(int percent);

    Editor& editor_;
};

}  // namespace mavrin2::desktop
