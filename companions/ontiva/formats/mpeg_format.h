#pragma once

#include "companions/ontiva/formats/sound_format.h"

namespace mavrin2::ontiva {

// MPEG audio and AAC without a container: an ID3v2 tag before the sound, with markers as chapters,
// and an ID3v1 tag after it. An existing APE tag is kept up to date.
class MpegFormat final : public SoundFormat {
public:
    MpegFormat(const RecognizedFile& kind, const Libraries& libraries)
        : kind_(kind), libraries_(libraries) {}

    SoundInfo Read(EditedFile& file) const override;
    std::optional<TailEdit> Write(EditedFile& file, const SoundInfo& info) const override;

private:
    RecognizedFile kind_;
    const Libraries& libraries_;
};

}  // namespace mavrin2::ontiva
