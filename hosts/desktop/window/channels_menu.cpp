#include "hosts/desktop/window/channels_menu.h"

namespace mavrin2::desktop {

ChannelsMenu::ChannelsMenu(Editor& editor, QWidget* parent)
    : QMenu("Cha&nnels", parent), editor_(editor) {
    connect(this, &QMenu::aboutToShow, this, &ChannelsMenu::Fill);
}

void ChannelsMenu::Fill() {
    clear();
    const qint32 count = editor_.IsOpen() ? editor_.Part("Channels").Number("Count") : 0;
    for (qint32 channel = 1; channel <= count; ++channel)
        Add(channel, "Show Channel &%1", "Visible");
    addSeparator();
    for (qint32 channel = 1; channel <= count; ++channel)
        Add(channel, "Edit Channel %1", "Operation");
    if (count == 0) addAction("(none)")->setEnabled(false);
}

void ChannelsMenu::Add(qint32 channel, const QString& text, const char* property) {
    const auto channels = editor_.Part("Channels");
    channels.Put("Num", channel);
    QAction* const action = addAction(text.arg(channel));
    action->setCheckable(true);
    action->setChecked(channels.Number(property) != 0);
    connect(action, &QAction::toggled, this, [this, channel, property](bool on) {
        editor_.Perform([&] {
            const auto changed = editor_.Part("Channels");
            changed.Put("Num", channel);
            changed.Put(property, on ? 1 : 0);
        });
    });
}

}  // namespace mavrin2::desktop
