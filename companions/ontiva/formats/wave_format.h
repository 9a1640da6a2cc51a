#pragma once

#include "companions/ontiva/chunks/chunk_file.h"
#include "companions/ontiva/formats/sound_format.h"

namespace mavrin2::ontiva {

// WAV: markers in `cue ` and LIST adtl, texts in LIST INFO and in the chunk `id3 `.
class WaveFormat final : public SoundFormat {
public:
    explicit WaveFormat(const Libraries& libraries) : libraries_(libraries) {}

    SoundInfo Read(EditedFile& file) const override;
    std::optional<TailEdit> Write(EditedFile& file, const SoundInfo& info) const override;

private:
    const Libraries& libraries_;
};

}  // namespace mavrin2::ontiva
