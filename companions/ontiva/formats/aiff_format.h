#pragma once

#include "companions/ontiva/formats/sound_format.h"

namespace mavrin2::ontiva {

// AIFF: markers in MARK, and with all they have as chapters of the tag in the chunk `ID3 `; texts
// in that tag and in chunks for each.
class AiffFormat final : public SoundFormat {
public:
    explicit AiffFormat(const Libraries& libraries) : libraries_(libraries) {}

    SoundInfo Read(EditedFile& file) const override;
    std::optional<TailEdit> Write(EditedFile& file, const SoundInfo& info) const override;

private:
    const Libraries& libraries_;
};

}  // namespace mavrin2::ontiva
