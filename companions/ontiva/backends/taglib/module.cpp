#include "companions/backends/backends.h"
#include "companions/ontiva/backends/taglib/comments.h"
#include "companions/ontiva/backends/taglib/id3_tag.h"
#include "companions/ontiva/backends/taglib/trailing_tags.h"

namespace mavrin2::ontiva {
namespace {

class TagLibTags final : public TagLibrary {
public:
    Id3Content ReadId3(std::string_view tag, std::int32_t rate) const override {
        return ReadId3Tag(tag, rate);
    }
    std::string RenderId3(std::string_view present, const SoundInfo& info,
                          std::int32_t rate) const override {
        return RenderId3Tag(present, info, rate);
    }
    TrailerContent ReadTrailer(EditedFile& file) const override { return ReadTrailingTags(file); }
    void WriteTrailer(EditedFile& file, const Fields& texts) const override {
        WriteTrailingTags(file, texts);
    }
    CommentContent ReadComments(EditedFile& file, const RecognizedFile& kind) const override {
        return ReadVorbisComments(file, kind);
    }
    void WriteComments(EditedFile& file, const RecognizedFile& kind,
                       const CommentContent& content) const override {
        WriteVorbisComments(file, kind, content);
    }
};

}  // namespace
}  // namespace mavrin2::ontiva

MAVRIN2_BACKEND_ENTRY(ontiva, taglib, TagLibrary) {
    static const mavrin2::ontiva::TagLibTags tags;
    return &tags;
}
