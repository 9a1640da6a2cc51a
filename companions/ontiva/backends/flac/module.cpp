#include <FLAC/stream_decoder.h>

#include <cstdio>
#include <memory>

#include "companions/backends/backends.h"
#include "companions/ontiva/libraries/libraries.h"

namespace mavrin2::ontiva {
namespace {

// Reads a FLAC file up to its first sound.
class BlockReader {
public:
    BlockReader(const ByteSource& file, std::int64_t start) : file_(file), position_(start) {}

    FlacLibrary::Blocks Read() {
        const std::unique_ptr<FLAC__StreamDecoder, decltype(&FLAC__stream_decoder_delete)> decoder(
            FLAC__stream_decoder_new(), FLAC__stream_decoder_delete);
        if (!decoder) throw std::bad_alloc();
        FLAC__stream_decoder_set_metadata_ignore_all(decoder.get());
        FLAC__stream_decoder_set_metadata_respond(decoder.get(), FLAC__METADATA_TYPE_CUESHEET);
        FLAC__stream_decoder_set_metadata_respond(decoder.get(), FLAC__METADATA_TYPE_APPLICATION);
        if (FLAC__stream_decoder_init_stream(decoder.get(), OnRead, nullptr, nullptr, nullptr,
                                             nullptr, OnSound, OnBlock, OnError,
                                             this) == FLAC__STREAM_DECODER_INIT_STATUS_OK)
            FLAC__stream_decoder_process_until_end_of_metadata(decoder.get());
        if (failed_) throw FileFault("cannot read the file");
        return std::move(blocks_);
    }

private:
    void Take(const FLAC__StreamMetadata& block) {
        if (block.type == FLAC__METADATA_TYPE_CUESHEET) {
            TakeTracks(block.data.cue_sheet);
        } else if (block.type == FLAC__METADATA_TYPE_APPLICATION && block.length > kIdSize) {
            const std::string_view id(reinterpret_cast<const char*>(block.data.application.id),
                                      kIdSize);
            std::string chunk(reinterpret_cast<const char*>(block.data.application.data),
                              block.length - kIdSize);
            if (id == "riff")
                blocks_.WaveChunks.push_back(std::move(chunk));
            else if (id == "aiff")
                blocks_.AiffChunks.push_back(std::move(chunk));
        }
    }

    // The last track is the end of the disc.
    void TakeTracks(const FLAC__StreamMetadata_CueSheet& sheet) {
        for (unsigned i = 0; i + 1 < sheet.num_tracks; ++i) {
            const FLAC__StreamMetadata_CueSheet_Track& track = sheet.tracks[i];
            FLAC__uint64 position = track.offset;
            for (unsigned k = 0; k < track.num_indices; ++k)
                if (track.indices[k].number == 1) position += track.indices[k].offset;
            char label[16];
            std::snprintf(label, sizeof label, "Track %02d", track.number);
            Marker marker;
            marker.Position =
                static_cast<std::int32_t>(std::min<FLAC__uint64>(position, INT32_MAX));
            marker.Label = label;
            blocks_.Tracks.push_back(std::move(marker));
        }
    }

    // No exception may pass through the library.
    static FLAC__StreamDecoderReadStatus OnRead(const FLAC__StreamDecoder*, FLAC__byte* target,
                                                std::size_t* count, void* self) {
        auto& reader = *static_cast<BlockReader*>(self);
        try {
            *count = reader.file_.Read(reader.position_, {reinterpret_cast<char*>(target), *count});
        } catch (...) {
            reader.failed_ = true;
            return FLAC__STREAM_DECODER_READ_STATUS_ABORT;
        }
        reader.position_ += static_cast<std::int64_t>(*count);
        return *count > 0 ? FLAC__STREAM_DECODER_READ_STATUS_CONTINUE
                          : FLAC__STREAM_DECODER_READ_STATUS_END_OF_STREAM;
    }
    static FLAC__StreamDecoderWriteStatus OnSound(const FLAC__StreamDecoder*, const FLAC__Frame*,
                                                  const FLAC__int32* const*, void*) {
        return FLAC__STREAM_DECODER_WRITE_STATUS_ABORT;
    }
    static void OnBlock(const FLAC__StreamDecoder*, const FLAC__StreamMetadata* block, void* self) {
        auto& reader = *static_cast<BlockReader*>(self);
        try {
            reader.Take(*block);
        } catch (...) {
            reader.failed_ = true;
        }
    }
    static void OnError(const FLAC__StreamDecoder*, FLAC__StreamDecoderErrorStatus, void*) {}

    static constexpr std::size_t kIdSize = 4;

    const ByteSource& file_;
    std::int64_t position_;
    FlacLibrary::Blocks blocks_;
    bool failed_ = false;
};

class FlacBlocks final : public FlacLibrary {
public:
    Blocks Read(const ByteSource& file, std::int64_t prefix) const override {
        return BlockReader(file, prefix).Read();
    }
};

}  // namespace
}  // namespace mavrin2::ontiva

MAVRIN2_BACKEND_ENTRY(ontiva, flac, FlacLibrary) {
    static const mavrin2::ontiva::FlacBlocks blocks;
    return &blocks;
}
