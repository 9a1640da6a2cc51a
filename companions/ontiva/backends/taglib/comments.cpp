#include "companions/ontiva/backends/taglib/comments.h"

#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/speexfile.h>
#include <taglib/vorbisfile.h>
#include <taglib/xiphcomment.h>

#include <memory>

#include "companions/ontiva/backends/taglib/conversions.h"
#include "companions/ontiva/backends/taglib/edited_stream.h"

namespace mavrin2::ontiva {
namespace {

// A file as one of TagLib's, with its comments. In FLAC, pictures are blocks beside them.
class CommentFile {
public:
    CommentFile(EditedFile& file, const RecognizedFile& kind) : stream_(file, kind.Prefix) {
        switch (kind.Kind) {
            case FileKind::Flac: {
                auto flac = std::make_unique<TagLib::FLAC::File>(
                    &stream_, TagLib::ID3v2::FrameFactory::instance(), false);
                // The library would write a tag at the end a second time.
                if (flac->isValid()) comments_ = flac->xiphComment(true);
                flac_ = flac.get();
                file_ = std::move(flac);
                break;
            }
            case FileKind::OggVorbis:
                Open<TagLib::Ogg::Vorbis::File>();
                break;
            case FileKind::Opus:
                Open<TagLib::Ogg::Opus::File>();
                break;
            case FileKind::Speex:
                Open<TagLib::Ogg::Speex::File>();
                break;
            default:
                Open<TagLib::Ogg::FLAC::File>();
        }
        stream_.Check();
        if (!file_->isValid() || !comments_) throw FileFault("the file's headers are damaged");
    }

    CommentContent Read() const {
        CommentContent content{ToFields(comments_->properties()), {}};
        for (const auto* picture : flac_ ? flac_->pictureList() : comments_->pictureList())
            content.Pictures.push_back(ToPicture(*picture));
        return content;
    }

    void Write(const CommentContent& content) {
        comments_->setProperties(ToProperties(content.Comments));
        if (flac_) {
            flac_->removePictures();
            for (const Picture& picture : content.Pictures)
                flac_->addPicture(NewPicture(picture));
            flac_->strip(TagLib::FLAC::File::ID3v1);
        } else {
            comments_->removeAllPictures();
            for (const Picture& picture : content.Pictures)
                comments_->addPicture(NewPicture(picture));
        }
        const bool saved = file_->save();
        stream_.Check();
        if (!saved) throw NotWritable("the comments cannot be written");
    }

private:
    template <class OggFile>
    void Open() {
        auto file = std::make_unique<OggFile>(&stream_, false);
        if (file->isValid()) comments_ = file->tag();
        file_ = std::move(file);
    }

    EditedStream stream_;
    std::unique_ptr<TagLib::File> file_;
    TagLib::FLAC::File* flac_ = nullptr;
    TagLib::Ogg::XiphComment* comments_ = nullptr;
};

}  // namespace

CommentContent ReadVorbisComments(EditedFile& file, const RecognizedFile& kind) {
    return CommentFile(file, kind).Read();
}

void WriteVorbisComments(EditedFile& file, const RecognizedFile& kind,
                         const CommentContent& content) {
    CommentFile(file, kind).Write(content);
}

}  // namespace mavrin2::ontiva
