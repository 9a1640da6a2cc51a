#include "hosts/desktop/files/recent_files.h"

#include <QFileInfo>
#include <QSettings>

namespace mavrin2::desktop {
namespace {

constexpr const char* kKey = "recent";

}  // namespace

RecentFiles::RecentFiles(std::function<void(const QString&)> open, QWidget* parent)
    : QMenu("Open &Recent", parent), open_(std::move(open)) {
    connect(this, &QMenu::aboutToShow, this, &RecentFiles::Fill);
}

QStringList RecentFiles::Names() {
    return QSettings().value(kKey).toStringList();
}

void RecentFiles::Add(const QString& name) {
    constexpr qsizetype kMost = 10;
    QStringList names = Names();
    const QString file = QFileInfo(name).absoluteFilePath();
    names.removeAll(file);
    names.prepend(file);
    QSettings().setValue(kKey, names.mid(0, kMost));
}

void RecentFiles::Remove(const QString& name) {
    QStringList names = Names();
    names.removeAll(QFileInfo(name).absoluteFilePath());
    QSettings().setValue(kKey, names);
}

void RecentFiles::Fill() {
    clear();
    int number = 0;
    for (const QString& name : Names()) {
        // The first nine have a digit to type.
        const QString key = ++number < 10 ? QString("&%1 ").arg(number) : QString();
        QAction* const action = addAction(key + QFileInfo(name).fileName().replace('&', "&&"));
        action->setStatusTip(name);
        connect(action, &QAction::triggered, this, [this, name] { open_(name); });
    }
    if (isEmpty()) addAction("(none)")->setEnabled(false);
}

}  // namespace mavrin2::desktop
