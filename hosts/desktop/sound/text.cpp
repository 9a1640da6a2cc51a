#include "hosts/desktop/sound/text.h"

namespace mavrin2::desktop {

QString TimeText(qint64 milliseconds) {
    constexpr qint64 kSecond = 1000;
    constexpr qint64 kMinute = 60 * kSecond;
    constexpr qint64 kHour = 60 * kMinute;
    return QString("%1:%2:%3.%4")
        .arg(milliseconds / kHour)
        .arg(milliseconds % kHour / kMinute, 2, 10, QChar('0'))
        .arg(milliseconds % kMinute / kSecond, 2, 10, QChar('0'))
        .arg(milliseconds % kSecond, 3, 10, QChar('0'));
}

}  // namespace mavrin2::desktop
