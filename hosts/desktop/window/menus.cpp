#include "hosts/desktop/window/menus.h"

#include <QKeySequence>
#include <QMenu>

#include "hosts/desktop/files/sound_clipboard.h"
#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

Menus::Menus(QMenuBar& bar, const ActionTarget& target) : bar_(bar), target_(target) {
    for (const ActionRow& row : ActionTable())
        Add(row);
}

QMenu& Menus::Menu(const QString& name) {
    for (QAction* const action : bar_.actions())
        if (action->text() == name) return *action->menu();
    return *bar_.addMenu(name);
}

void Menus::Add(const ActionRow& row) {
    if (!row.Text) {
        Menu(row.Menu).addSeparator();
        return;
    }
    if (!target_.Sound.Has(row.Member)) return;
    QAction* const action = Menu(row.Menu).addAction(row.Text);
    QList<QKeySequence> keys;
    for (const QString& key : QString(row.Keys).split(' '))
        keys += QKeySequence(key, QKeySequence::PortableText);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, [this, &row] { row.Run(target_); });
    entries_.push_back({action, row.When});
}

void Menus::Update() {
    for (const Entry& entry : entries_)
        entry.Action->setEnabled(IsPossible(entry.When));
}

bool Menus::IsPossible(Needs needs) const {
    const binding::LateBound& members = target_.Sound.Members();
    switch (needs) {
        case Needs::Nothing:
            return true;
        case Needs::Sound:
            return target_.Sound.IsOpen();
        case Needs::Selection:
            return target_.Sound.Position().Selected;
        case Needs::Undo:
            return members.Number("UndoEnabled") != 0;
        case Needs::Redo:
            return members.Number("RedoEnabled") != 0;
        case Needs::Clip:
            return target_.Sound.IsOpen() && target_.Clipboard.HasSound();
    }
    return false;
}

}  // namespace mavrin2::desktop
