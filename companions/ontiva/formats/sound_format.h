#pragma once

#include <memory>
#include <optional>

#include "companions/ontiva/files/edited_file.h"
#include "companions/ontiva/files/tail_edit.h"
#include "companions/ontiva/info/sound_info.h"
#include "companions/ontiva/libraries/libraries.h"

namespace mavrin2::ontiva {

// How one kind of file holds tags and markers.
class SoundFormat {
public:
    virtual ~SoundFormat() = default;

    // Throws FileFault when reading fails. Damage is no failure: what makes sense is read.
    virtual SoundInfo Read(EditedFile& file) const = 0;
    // Edits `file` so that it holds `info`, unless the same can be done by the returned change.
    // Throws NotWritable, FileFault.
    virtual std::optional<TailEdit> Write(EditedFile& file, const SoundInfo& info) const = 0;
};

// The format of a file; null when no header says what it is.
std::unique_ptr<SoundFormat> FormatOf(const ByteSource& file, const Libraries& libraries);

}  // namespace mavrin2::ontiva
