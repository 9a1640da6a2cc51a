#pragma once

#include <filesystem>

namespace mavrin2::editor {

// What the name of a sound file says of how it is read and written.
enum class FileKind { Sound = 0, Wma = 1, CdTrack = 2 };

FileKind FileKindOf(const std::filesystem::path& path);

}  // namespace mavrin2::editor
