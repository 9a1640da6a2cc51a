#pragma once

#include <QString>

class QWidget;

namespace mavrin2::desktop {

// The name of a sound file to open; empty if the user gives none.
QString AskFileToOpen(QWidget* parent, const QString& folder);

// The name of a file to write, in a format that its extension chooses. `suggested` is a file name.
QString AskFileToSave(QWidget* parent, const QString& title, const QString& suggested);

}  // namespace mavrin2::desktop
