#pragma once

#include <QScrollBar>

#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

// Shows and moves the visible range of the open sound.
class ViewScrollBar final : public QScrollBar {
public:
    explicit ViewScrollBar(Editor& editor);

    void Update();

private:
    void Scroll(int start);

    Editor& editor_;
};

}  // namespace mavrin2::desktop
