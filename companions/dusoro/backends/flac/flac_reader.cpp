#include "companions/dusoro/backends/flac/flac_reader.h"

#include <algorithm>
#include <utility>

#include "companions/dusoro/sound/format_text.h"
#include "companions/dusoro/sound/plausible_length.h"
#include "companions/dusoro/sound/sample_rounding.h"

namespace mavrin2::dusoro {

Outcome<std::unique_ptr<SoundReader>> FlacReader::Open(std::shared_ptr<platform::File> file,
                                                       bool check) {
    std::unique_ptr<FlacReader> reader(new FlacReader);
    const std::int64_t bytes = file->Length().value_or(0);
    reader->file_ = std::move(file);
    reader->decoder_.reset(FLAC__stream_decoder_new());
    if (!reader->decoder_) return SoundError::Memory;
    if (check) FLAC__stream_decoder_set_md5_checking(reader->decoder_.get(), 1);
    if (!reader->Start()) return SoundError::FormatFile;
    reader->Describe(bytes);
    // A description without any sound after it is a damaged file, unless it says so itself.
    while (reader->rest_.empty() && reader->DecodeFrame()) {
    }
    if (reader->rest_.empty() && reader->info_->total_samples > 0) return SoundError::FormatFile;
    return std::unique_ptr<SoundReader>(std::move(reader));
}

bool FlacReader::Start() {
    return FLAC__stream_decoder_init_stream(decoder_.get(), OnRead, nullptr, nullptr, nullptr,
                                            nullptr, OnWrite, OnMetadata, OnError,
                                            this) == FLAC__STREAM_DECODER_INIT_STATUS_OK &&
           FLAC__stream_decoder_process_until_end_of_metadata(decoder_.get()) && info_ &&
           info_->sample_rate >= 1 && info_->sample_rate <= kHighestRate && info_->channels >= 1 &&
           info_->bits_per_sample >= 4 && info_->bits_per_sample <= 32;
}

void FlacReader::Describe(std::int64_t fileBytes) {
    const auto rate = static_cast<std::int32_t>(info_->sample_rate);
    const auto channels = static_cast<std::int32_t>(info_->channels);
    const auto bits = static_cast<std::int32_t>(info_->bits_per_sample);
    description_.SourceRate = rate;
    description_.Delivered = {rate, std::min(channels, 2)};
    description_.SourceChannels = channels;
    description_.BitsPerSample = bits;
    description_.Text = TextWithBits("FLAC", rate, bits, channels);
    description_.Format = OutputFormat{Coding::Flac, description_.Delivered, bits};
    // An encoder that could not go back to its header leaves 0 there. Music shrinks to some 60 %.
    const std::int64_t guess = fileBytes * 8 / (std::int64_t{bits} * channels) * 5 / 3;
    const auto told = static_cast<std::int64_t>(info_->total_samples);
    description_.StatedFrames = told;
    description_.Frames = PlausibleFrames(told > 0 ? told : guess, fileBytes);
    if (channels > 2) downMix_.emplace(UsualSpeakers(static_cast<std::size_t>(channels)));
}

std::size_t FlacReader::Read(std::span<std::int16_t> samples) {
    const std::size_t wanted = samples.size() / OutChannels() * OutChannels();
    room_ = samples.first(wanted);
    const std::size_t kept = std::min(room_.size(), rest_.size() - restTaken_);
    std::copy_n(rest_.begin() + static_cast<std::ptrdiff_t>(restTaken_), kept, room_.begin());
    restTaken_ += kept;
    room_ = room_.subspan(kept);
    while (!room_.empty() && DecodeFrame()) {
    }
    const std::size_t left = room_.size();
    room_ = {};
    return (wanted - left) / OutChannels();
}

// False at the end of the stream. Damage in between is skipped by the library.
bool FlacReader::DecodeFrame() {
    if (ended_) return false;
    ended_ = !FLAC__stream_decoder_process_single(decoder_.get()) ||
             FLAC__stream_decoder_get_state(decoder_.get()) >= FLAC__STREAM_DECODER_END_OF_STREAM;
    // Compares the checksums, where that was asked for.
    if (ended_) faults_.ChecksumDiffers = !FLAC__stream_decoder_finish(decoder_.get());
    return !ended_;
}

void FlacReader::Take(const FLAC__Frame& frame, const FLAC__int32* const* channels) {
    const FLAC__FrameHeader& header = frame.header;
    // A damaged header that looks whole.
    if (header.channels != info_->channels || header.bits_per_sample < 4) {
        ++doubtful_;
        return;
    }
    // What is not sound may follow the last of it, so an error counts only with sound after it.
    faults_.DamagedBlocks += std::exchange(doubtful_, 0);
    const std::size_t frames = header.blocksize;
    const std::size_t direct = std::min(frames, room_.size() / OutChannels());
    Render(header, channels, 0, direct, room_.data());
    room_ = room_.subspan(direct * OutChannels());
    rest_.resize((frames - direct) * OutChannels());
    restTaken_ = 0;
    Render(header, channels, direct, frames - direct, rest_.data());
}

void FlacReader::Render(const FLAC__FrameHeader& header, const FLAC__int32* const* channels,
                        std::size_t first, std::size_t count, std::int16_t* out) {
    if (downMix_) return Mix(header, channels, first, count, out);
    const FLAC__int32* left = channels[0] + first;
    const FLAC__int32* right = channels[header.channels - 1] + first;
    const unsigned bits = header.bits_per_sample;
    const unsigned shift = 32 - bits;
    if (bits == 16 && OutChannels() == 2) {
        for (std::size_t i = 0; i < count; ++i) {
            out[2 * i] = static_cast<std::int16_t>(left[i]);
            out[2 * i + 1] = static_cast<std::int16_t>(right[i]);
        }
    } else if (OutChannels() == 2) {
        for (std::size_t i = 0; i < count; ++i) {
            out[2 * i] = ToSample(left[i] << shift);
            out[2 * i + 1] = ToSample(right[i] << shift);
        }
    } else {
        for (std::size_t i = 0; i < count; ++i)
            out[i] = ToSample(left[i] << shift);
    }
}

void FlacReader::Mix(const FLAC__FrameHeader& header, const FLAC__int32* const* channels,
                     std::size_t first, std::size_t count, std::int16_t* out) {
    const unsigned shift = 32 - header.bits_per_sample;
    gathered_.resize(count * header.channels);
    for (unsigned c = 0; c < header.channels; ++c)
        for (std::size_t i = 0; i < count; ++i)
            gathered_[i * header.channels + c] = ToFloat(channels[c][first + i] << shift);
    faults_.LimitedSamples += static_cast<std::int64_t>(downMix_->Apply(gathered_, out));
}

FLAC__StreamDecoderReadStatus FlacReader::OnRead(const FLAC__StreamDecoder*, FLAC__byte* target,
                                                 std::size_t* count, void* self) {
    auto& reader = *static_cast<FlacReader*>(self);
    const auto got =
        reader.file_->Read(reader.position_, std::as_writable_bytes(std::span(target, *count)));
    *count = got.value_or(0);
    reader.position_ += static_cast<std::int64_t>(*count);
    if (!got) return FLAC__STREAM_DECODER_READ_STATUS_ABORT;
    return *count > 0 ? FLAC__STREAM_DECODER_READ_STATUS_CONTINUE
                      : FLAC__STREAM_DECODER_READ_STATUS_END_OF_STREAM;
}

// No exception may pass through the library.
FLAC__StreamDecoderWriteStatus FlacReader::OnWrite(const FLAC__StreamDecoder*,
                                                   const FLAC__Frame* frame,
                                                   const FLAC__int32* const channels[],
                                                   void* self) {
    try {
        static_cast<FlacReader*>(self)->Take(*frame, channels);
        return FLAC__STREAM_DECODER_WRITE_STATUS_CONTINUE;
    } catch (...) {
        return FLAC__STREAM_DECODER_WRITE_STATUS_ABORT;
    }
}

void FlacReader::OnMetadata(const FLAC__StreamDecoder*, const FLAC__StreamMetadata* metadata,
                            void* self) {
    if (metadata->type == FLAC__METADATA_TYPE_STREAMINFO)
        static_cast<FlacReader*>(self)->info_ = metadata->data.stream_info;
}

}  // namespace mavrin2::dusoro
