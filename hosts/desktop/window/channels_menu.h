#pragma once

#include <QMenu>

#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

// Which channels of the open sound are shown and changed by edits.
class ChannelsMenu final : public QMenu {
public:
    ChannelsMenu(Editor& editor, QWidget* parent);

private:
    void Fill();
    // An entry that turns a property of a channel on and off; `text` has the channel's number.
    void Add(qint32 channel, const QString& text, const char* property);

    Editor& editor_;
};

}  // namespace mavrin2::desktop
