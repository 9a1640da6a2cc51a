#pragma once

#include <QLockFile>
#include <QString>
#include <QTemporaryDir>

namespace mavrin2::desktop {

// A folder for one sound on the clipboard, which only the user can read. It is removed with this
// object; one that a killed program has left is removed when the next one is made.
class ClipFolder {
public:
    ClipFolder();

    QString File() const { return folder_.filePath("clip.wav"); }

private:
    QTemporaryDir folder_;
    QLockFile lock_;
};

}  // namespace mavrin2::desktop
