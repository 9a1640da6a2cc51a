#pragma once

#include "platform/files.h"

namespace mavrin2::platform {

enum class CopyOutcome { Done, ReadFailed, WriteFailed };

// Writes all bytes of `source` to the start of `target`, a block at a time. Throws std::bad_alloc
// when there is no memory for a block.
CopyOutcome CopyWholeFile(File& source, File& target);

}  // namespace mavrin2::platform
