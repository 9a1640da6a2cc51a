#include "companions/ontiva/formats/sound_format.h"

#include "companions/ontiva/formats/aiff_format.h"
#include "companions/ontiva/formats/comment_format.h"
#include "companions/ontiva/formats/mpeg_format.h"
#include "companions/ontiva/formats/wave_format.h"

namespace mavrin2::ontiva {
namespace {

class OtherFormat final : public SoundFormat {
public:
    explicit OtherFormat(const Libraries& libraries) : libraries_(libraries) {}

    SoundInfo Read(EditedFile& file) const override { return libraries_.Containers().Read(file); }
    std::optional<TailEdit> Write(EditedFile&, const SoundInfo&) const override {
        throw NotWritable("files of this kind are only read");
    }

private:
    const Libraries& libraries_;
};

}  // namespace

std::unique_ptr<SoundFormat> FormatOf(const ByteSource& file, const Libraries& libraries) {
    RecognizedFile kind = Recognize(file);
    switch (kind.Kind) {
        case FileKind::Wave:
            return std::make_unique<WaveFormat>(libraries);
        case FileKind::Aiff:
            return std::make_unique<AiffFormat>(libraries);
        case FileKind::Mpeg:
            return std::make_unique<MpegFormat>(kind, libraries);
        case FileKind::Other:
            return std::make_unique<OtherFormat>(libraries);
        case FileKind::Unknown:
            return nullptr;
        default:
            // Times need a rate, whatever a damaged header says.
            kind.Rate = kind.Rate > 0 ? kind.Rate : 44100;
            return std::make_unique<CommentFormat>(kind, libraries);
    }
}

}  // namespace mavrin2::ontiva
