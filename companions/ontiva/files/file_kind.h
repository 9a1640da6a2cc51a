#pragma once

#include "companions/ontiva/files/byte_source.h"

namespace mavrin2::ontiva {

// Kinds of files by how they hold tags and markers.
enum class FileKind : std::uint8_t {
    Unknown,  // no header says what it is
    Wave,
    Aiff,
    Flac,
    OggVorbis,
    Opus,
    Speex,
    OggFlac,
    Mpeg,   // MPEG audio or AAC frames without a container
    Other,  // a container that is only read
};

struct RecognizedFile {
    FileKind Kind = FileKind::Unknown;
    // Of the sound in hertz; 0 where the chunks or the container say it.
    std::int32_t Rate = 0;
    // Bytes of the ID3v2 tags before the rest of the file.
    std::int64_t Prefix = 0;
};

// Recognizes a file by its content. Reads its first pages, after ID3v2 tags at most 64 KiB.
RecognizedFile Recognize(const ByteSource& file);

}  // namespace mavrin2::ontiva
