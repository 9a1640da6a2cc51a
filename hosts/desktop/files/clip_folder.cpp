#include "hosts/desktop/files/clip_folder.h"

#include <QDir>

namespace mavrin2::desktop {
namespace {

constexpr const char* kPrefix = "mavrin2-clip-";
constexpr const char* kLock = "lock";

void RemoveAbandoned() {
    const QDir all = QDir::temp();
    for (const QString& name : all.entryList({QString(kPrefix) + '*'}, QDir::Dirs)) {
        QDir folder(all.filePath(name));
        QLockFile lock(folder.filePath(kLock));
        lock.setStaleLockTime(0);
        // A folder without a lock is being made just now.
        if (folder.exists(kLock) && lock.tryLock(0)) folder.removeRecursively();
    }
}

}  // namespace

ClipFolder::ClipFolder()
    : folder_(QDir::temp().filePath(QString(kPrefix) + "XXXXXX")), lock_(folder_.filePath(kLock)) {
    lock_.setStaleLockTime(0);
    lock_.tryLock(0);
    RemoveAbandoned();
}

}  // namespace mavrin2::desktop
