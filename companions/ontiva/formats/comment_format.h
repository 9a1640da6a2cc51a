#pragma once

#include "companions/ontiva/formats/sound_format.h"

namespace mavrin2::ontiva {

// FLAC and Ogg: texts and markers as Vorbis comments.
class CommentFormat final : public SoundFormat {
public:
    CommentFormat(const RecognizedFile& kind, const Libraries& libraries)
        : kind_(kind), libraries_(libraries) {}

    SoundInfo Read(EditedFile& file) const override;
    std::optional<TailEdit> Write(EditedFile& file, const SoundInfo& info) const override;

private:
    // Markers and texts that a FLAC file keeps of the file it was made from.
    SoundInfo Original(const EditedFile& file) const;

    RecognizedFile kind_;
    const Libraries& libraries_;
};

}  // namespace mavrin2::ontiva
