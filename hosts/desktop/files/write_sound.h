#pragma once

#include <QString>

#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

// Writes the sound, or its selection, to a file, which takes its name only when it is complete: an
// older file of that name stays as it was if writing fails or is stopped. Failures are reported by
// the editor's signal.
bool WriteSound(Editor& editor, const QString& name, bool selection);

}  // namespace mavrin2::desktop
