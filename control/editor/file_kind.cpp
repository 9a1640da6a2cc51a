#include "control/editor/file_kind.h"

#include "automation/text.h"

namespace mavrin2::editor {

FileKind FileKindOf(const std::filesystem::path& path) {
    const std::string name = path.string();
    const std::size_t point = name.rfind('.');
    if (point == std::string::npos) return FileKind::Sound;
    const std::string extension = automation::AsciiLower(name.substr(point));
    if (extension == ".wma") return FileKind::Wma;
    if (extension == ".cda") return FileKind::CdTrack;
    return FileKind::Sound;
}

}  // namespace mavrin2::editor
