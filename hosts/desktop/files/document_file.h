#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QWidget>

#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

// The file of the open sound: whether it has unsaved changes, and what the user is asked before
// they are lost. Results are false when something failed or the user has declined; failures are
// reported by the editor's signal.
class DocumentFile final : public QObject {
    Q_OBJECT

public:
    DocumentFile(Editor& editor, QWidget& window);

    // An empty stereo sound.
    bool New();
    bool Open();
    bool Open(const QString& name);
    bool Save();
    bool SaveAs();
    bool SaveSelectionAs();
    // Writes the sound to that file without asking.
    bool SaveTo(const QString& name);

    // Empty for a sound that has not been saved yet.
    const QString& Name() const { return name_; }
    bool IsModified() const;
    // Asks about unsaved changes. True when nothing is unsaved any more, or may be lost.
    bool MayLoseChanges();

signals:
    // Name or IsModified may have changed.
    void Changed();

private:
    void Opened(const QString& name);
    // When the file was written, as far as is known here; and the same now.
    QDateTime WrittenNow() const;
    QString Suggestion(const QString& addition) const;

    Editor& editor_;
    QWidget& window_;
    QString name_;
    std::string savedVersion_;
    bool markersModified_ = false;
    QDateTime written_;
};

}  // namespace mavrin2::desktop
