#pragma once

#include <QAction>
#include <QMenuBar>
#include <vector>

#include "hosts/desktop/window/action_table.h"

namespace mavrin2::desktop {

// The entries of the action table, in the menus of a menu bar.
class Menus final : public QObject {
public:
    Menus(QMenuBar& bar, const ActionTarget& target);

    // The menu of that name, made if it is new.
    QMenu& Menu(const QString& name);
    // Entries become available or not, as the sound is now.
    void Update();

private:
    void Add(const ActionRow& row);
    bool IsPossible(Needs needs) const;

    struct Entry {
        QAction* Action;
        Needs When;
    };

    QMenuBar& bar_;
    ActionTarget target_;
    std::vector<Entry> entries_;
};

}  // namespace mavrin2::desktop
