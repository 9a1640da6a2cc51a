#pragma once

#include <QFile>
#include <QString>
#include <string>

namespace mavrin2::desktop {

// Names of files as the control takes them.
inline std::string FileName(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

// h:mm:ss.mmm.
QString TimeText(qint64 milliseconds);

}  // namespace mavrin2::desktop
