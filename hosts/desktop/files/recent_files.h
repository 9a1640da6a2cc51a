#pragma once

#include <QMenu>
#include <functional>

namespace mavrin2::desktop {

// The menu of files used last, which are kept among the user's settings.
class RecentFiles final : public QMenu {
public:
    RecentFiles(std::function<void(const QString&)> open, QWidget* parent);

    static QStringList Names();
    // The file comes first from now on.
    static void Add(const QString& name);
    static void Remove(const QString& name);

private:
    void Fill();

    std::function<void(const QString&)> open_;
};

}  // namespace mavrin2::desktop
