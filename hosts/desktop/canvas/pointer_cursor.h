#pragma once

#include <QCursor>

#include "platform/pointer.h"

namespace mavrin2::desktop {

// The toolkit's cursor for a pointer. `scale` is the number of the screen's pixels per unit of the
// toolkit.
QCursor CursorOf(const platform::Pointer& pointer, double scale);

}  // namespace mavrin2::desktop
