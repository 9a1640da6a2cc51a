#pragma once

#include <QLabel>
#include <QStatusBar>

#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

// Position, selection, length and format of the open sound.
class StatusLine {
public:
    StatusLine(QStatusBar& bar, const Editor& editor);

    void Update();

private:
    QLabel* AddLabel(QStatusBar& bar, int stretch);
    QString Time(qint32 frames) const;

    const Editor& editor_;
    QLabel* position_;
    QLabel* selection_;
    QLabel* length_;
    QLabel* format_;
};

}  // namespace mavrin2::desktop
