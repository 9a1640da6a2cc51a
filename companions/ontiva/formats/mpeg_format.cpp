#include "companions/ontiva/formats/mpeg_format.h"

namespace mavrin2::ontiva {

SoundInfo MpegFormat::Read(EditedFile& file) const {
    SoundInfo info;
    if (kind_.Prefix > 0)
        info = libraries_.Tags().ReadId3(file.Bytes(0, kind_.Prefix), kind_.Rate).Info;
    const TrailerContent trailer = libraries_.Tags().ReadTrailer(file);
    if (info.Texts.Empty()) info.Texts = trailer.Texts;
    if (info.TagVersion == 0 && trailer.HasId3v1) info.TagVersion = 1;
    return info;
}

std::optional<TailEdit> MpegFormat::Write(EditedFile& file, const SoundInfo& info) const {
    const std::string tag =
        libraries_.Tags().RenderId3(file.Bytes(0, kind_.Prefix), info, kind_.Rate);
    libraries_.Tags().WriteTrailer(file, info.Texts);
    file.Replace(0, kind_.Prefix, tag);
    return std::nullopt;
}

}  // namespace mavrin2::ontiva
