#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "companions/ontiva/files/edited_file.h"
#include "companions/ontiva/files/file_kind.h"
#include "companions/ontiva/info/sound_info.h"

// What the companion takes from libraries, each of which is wrapped in a backend.
namespace mavrin2::ontiva {

struct Id3Content {
    SoundInfo Info;  // with the chapters as markers
    // Whether each chapter has the exact marker that was written with it, and agrees with it.
    bool ChaptersUnchanged = false;
};

struct CommentContent {
    Fields Comments;  // all of them
    std::vector<Picture> Pictures;
};

struct TrailerContent {
    Fields Texts;
    bool HasId3v1 = false;
};

// Tags. `rate` is that of the sound in hertz.
class TagLibrary {
public:
    virtual ~TagLibrary() = default;

    // `tag` is a whole ID3v2 tag, and may be damaged.
    virtual Id3Content ReadId3(std::string_view tag, std::int32_t rate) const = 0;
    // The tag `present`, which may be empty, after `info` was written to it; with chapters only
    // when `rate` is not 0. Empty when there is nothing to hold. Throws NotWritable when `present`
    // has parts that would be lost.
    virtual std::string RenderId3(std::string_view present, const SoundInfo& info,
                                  std::int32_t rate) const = 0;

    // The tags at the end of MPEG audio: APE and ID3v1.
    virtual TrailerContent ReadTrailer(EditedFile& file) const = 0;
    virtual void WriteTrailer(EditedFile& file, const Fields& texts) const = 0;

    // Vorbis comments, in FLAC after `prefix` bytes of other tags. Throws FileFault for a file that
    // the library does not accept.
    virtual CommentContent ReadComments(EditedFile& file, const RecognizedFile& kind) const = 0;
    virtual void WriteComments(EditedFile& file, const RecognizedFile& kind,
                               const CommentContent& content) const = 0;
};

// What FLAC files hold beside comments.
class FlacLibrary {
public:
    virtual ~FlacLibrary() = default;

    struct Blocks {
        // Chunks of the file that was encoded, each with its header: of WAV, or of AIFF.
        std::vector<std::string> WaveChunks;
        std::vector<std::string> AiffChunks;
        std::vector<Marker> Tracks;  // of a cue sheet
    };
    virtual Blocks Read(const ByteSource& file, std::int64_t prefix) const = 0;
};

// Files that are only read: what their containers tell of the sound, chapters as markers.
class ContainerLibrary {
public:
    virtual ~ContainerLibrary() = default;

    virtual SoundInfo Read(const ByteSource& file) const = 0;
};

// A library is asked for when a file needs it. Each throws MissingLibrary where it is not
// installed.
class Libraries {
public:
    virtual ~Libraries() = default;

    virtual const TagLibrary& Tags() const = 0;
    virtual const FlacLibrary& Flac() const = 0;
    virtual const ContainerLibrary& Containers() const = 0;
};

struct MissingLibrary : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace mavrin2::ontiva
