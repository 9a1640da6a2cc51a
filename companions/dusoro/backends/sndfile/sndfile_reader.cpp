#include "companions/dusoro/backends/sndfile/sndfile_reader.h"

#include <algorithm>
#include <array>

#include "companions/dusoro/backends/sndfile/headerless.h"
#include "companions/dusoro/backends/sndfile/sndfile_formats.h"
#include "companions/dusoro/backends/sndfile/stated_length.h"
#include "companions/dusoro/sound/format_text.h"
#include "companions/dusoro/sound/plausible_length.h"
#include "companions/dusoro/sound/sample_blocks.h"

namespace mavrin2::dusoro {
namespace {

// Converted while it is in the cache.
constexpr std::size_t kBlockValues = 16384;
// A header may claim 1024; no one has that many loudspeakers, and each needs its room in a
// block.
constexpr int kMostChannels = 256;

SoundError LastError() {
    switch (sf_error(nullptr)) {
        case SF_ERR_UNSUPPORTED_ENCODING:
            return SoundError::FormatNotSupported;
        default:
            return SoundError::FormatFile;
    }
}

Speaker SpeakerOf(int channel) {
    switch (channel) {
        case SF_CHANNEL_MAP_LEFT:
        case SF_CHANNEL_MAP_FRONT_LEFT:
        case SF_CHANNEL_MAP_FRONT_LEFT_OF_CENTER:
            return Speaker::FrontLeft;
        case SF_CHANNEL_MAP_RIGHT:
        case SF_CHANNEL_MAP_FRONT_RIGHT:
        case SF_CHANNEL_MAP_FRONT_RIGHT_OF_CENTER:
            return Speaker::FrontRight;
        case SF_CHANNEL_MAP_MONO:
        case SF_CHANNEL_MAP_CENTER:
        case SF_CHANNEL_MAP_FRONT_CENTER:
            return Speaker::FrontCentre;
        case SF_CHANNEL_MAP_LFE:
            return Speaker::LowFrequency;
        case SF_CHANNEL_MAP_REAR_LEFT:
        case SF_CHANNEL_MAP_SIDE_LEFT:
        case SF_CHANNEL_MAP_TOP_FRONT_LEFT:
        case SF_CHANNEL_MAP_TOP_REAR_LEFT:
            return Speaker::SurroundLeft;
        case SF_CHANNEL_MAP_REAR_RIGHT:
        case SF_CHANNEL_MAP_SIDE_RIGHT:
        case SF_CHANNEL_MAP_TOP_FRONT_RIGHT:
        case SF_CHANNEL_MAP_TOP_REAR_RIGHT:
            return Speaker::SurroundRight;
        case SF_CHANNEL_MAP_REAR_CENTER:
        case SF_CHANNEL_MAP_TOP_CENTER:
        case SF_CHANNEL_MAP_TOP_FRONT_CENTER:
        case SF_CHANNEL_MAP_TOP_REAR_CENTER:
            return Speaker::SurroundCentre;
        default:
            return Speaker::Unknown;
    }
}

}  // namespace

Outcome<std::unique_ptr<SoundReader>> SndfileReader::Open(std::shared_ptr<platform::File> file,
                                                          const ReadingHint& hint) {
    std::unique_ptr<SndfileReader> reader(new SndfileReader);
    reader->file_ = std::move(file);
    reader->stream_.File = reader->file_.get();
    reader->check_ = hint.Check;
    SF_INFO info{};
    if (hint.Headerless) reader->OpenHeaderless(*hint.Headerless, info);
    reader->handle_.reset(reader->stream_.Open(SFM_READ, info));
    if (!reader->handle_) return LastError();
    if (info.samplerate < 1 || info.samplerate > kHighestRate || info.channels < 1 ||
        info.channels > kMostChannels)
        return SoundError::FormatFile;
    // What other libraries read better here is theirs.
    if (!FindSubtype(info.format) || (info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_FLAC)
        return SoundError::FormatNotSupported;
    reader->Describe(info);
    return std::unique_ptr<SoundReader>(std::move(reader));
}

void SndfileReader::OpenHeaderless(const OutputFormat& format, SF_INFO& info) {
    if (NeedsHiddenHeader(format, Container::Raw)) {
        headed_ = WithHeader(*file_, WavHeader(format));
        stream_.File = headed_.get();
        return;
    }
    info.format = SndfileFormatOf(format, Container::Raw);
    info.samplerate = format.Format.Rate;
    info.channels = format.Format.Channels;
}

// A last block that was filled up: the file says how much of it is sound.
void SndfileReader::LimitToFrameCount() {
    SF_CHUNK_INFO chunk{};
    std::copy_n("fact", 4, chunk.id);
    chunk.id_size = 4;
    SF_CHUNK_ITERATOR* found = sf_get_chunk_iterator(handle_.get(), &chunk);
    std::array<unsigned char, 4> bytes{};
    if (!found || sf_get_chunk_size(found, &chunk) != SF_ERR_NO_ERROR || chunk.datalen < 4) return;
    chunk.datalen = bytes.size();
    chunk.data = bytes.data();
    if (sf_get_chunk_data(found, &chunk) != SF_ERR_NO_ERROR) return;
    const std::int64_t count =
        std::int64_t{bytes[0]} | bytes[1] << 8 | bytes[2] << 16 | std::int64_t{bytes[3]} << 24;
    constexpr std::int64_t kLargestBlock = 8192;
    if (count > description_.Frames || count + kLargestBlock <= description_.Frames) return;
    description_.Frames = left_ = count;
}

void SndfileReader::Describe(const SF_INFO& info) {
    const SndfileSubtype& subtype = *FindSubtype(info.format);
    description_.SourceRate = info.samplerate;
    description_.Delivered = {info.samplerate, std::min(info.channels, 2)};
    description_.SourceChannels = info.channels;
    description_.Frames = PlausibleFrames(info.frames, file_->Length().value_or(0));
    description_.BitsPerSample = subtype.Coding == SndfileCoding::Lossy ? 16 : subtype.Bits;
    description_.PlainPcm = subtype.Coding == SndfileCoding::Integer;
    description_.Text =
        subtype.Bits > 0 ? TextWithBits(subtype.Name, info.samplerate, subtype.Bits, info.channels)
                         : TextWithBitRate(subtype.Name, info.samplerate, 0, info.channels);

    if (subtype.Written)
        description_.Format = OutputFormat{*subtype.Written, description_.Delivered, subtype.Bits};
    const int major = info.format & SF_FORMAT_TYPEMASK;
    if (!headed_ && subtype.Coding == SndfileCoding::Lossy &&
        (major == SF_FORMAT_WAV || major == SF_FORMAT_WAVEX))
        LimitToFrameCount();
    const bool sized =
        subtype.Coding != SndfileCoding::Lossless && subtype.Bits > 0 && subtype.Bits % 8 == 0;
    if (!headed_)
        description_.StatedFrames =
            StatedFrames(*file_, description_.Frames, sized ? subtype.Bits / 8 * info.channels : 0);

    if (info.channels > 2) {
        downMix_.emplace(Speakers(info.channels));
        native_ = Native::Float;
    } else if (subtype.Format == SF_FORMAT_VOX_ADPCM) {
        native_ = Native::Pairs;
    } else if (subtype.Coding == SndfileCoding::Float) {
        native_ = subtype.Bits == 64 ? Native::Double : Native::Float;
    } else if (subtype.Coding != SndfileCoding::Lossy && subtype.Bits > 16) {
        native_ = Native::Int;
    }
}

std::vector<Speaker> SndfileReader::Speakers(int channels) {
    std::vector<int> map(static_cast<std::size_t>(channels));
    const int size = static_cast<int>(map.size() * sizeof(int));
    if (sf_command(handle_.get(), SFC_GET_CHANNEL_MAP_INFO, map.data(), size) != SF_TRUE)
        return UsualSpeakers(map.size());
    std::vector<Speaker> speakers(map.size());
    std::transform(map.begin(), map.end(), speakers.begin(), SpeakerOf);
    return speakers;
}

std::size_t SndfileReader::Read(std::span<std::int16_t> samples) {
    const auto channels = static_cast<std::size_t>(description_.Delivered.Channels);
    const std::size_t wanted = samples.size() / channels;
    const auto frames =
        static_cast<std::size_t>(std::min<std::int64_t>(left_, static_cast<std::int64_t>(wanted)));
    const std::size_t read = ReadFrames(samples.first(frames * channels), frames);
    left_ -= static_cast<std::int64_t>(read);
    return read;
}

std::size_t SndfileReader::ReadFrames(std::span<std::int16_t> samples, std::size_t frames) {
    if (downMix_) return ReadMixed(samples.data(), frames);
    switch (native_) {
        case Native::Short: {
            const auto got =
                sf_readf_short(handle_.get(), samples.data(), static_cast<sf_count_t>(frames));
            return got > 0 ? static_cast<std::size_t>(got) : 0;
        }
        case Native::Pairs:
            return ReadPairs(samples);
        case Native::Int:
            return ReadConverted(sf_readf_int, ints_, samples.data(), frames);
        case Native::Float:
            return ReadConverted(sf_readf_float, floats_, samples.data(), frames);
        default:
            return ReadConverted(sf_readf_double, doubles_, samples.data(), frames);
    }
}

// Mono, two samples in a byte: asked for an odd number of them, libsndfile writes one more than it
// was given room for.
std::size_t SndfileReader::ReadPairs(std::span<std::int16_t> samples) {
    std::size_t done = 0;
    while (done < samples.size()) {
        if (pairsLeft_.empty()) {
            pairs_.resize(kBlockValues);
            const auto got =
                sf_read_short(handle_.get(), pairs_.data(), static_cast<sf_count_t>(kBlockValues));
            if (got <= 0) break;
            pairsLeft_ = std::span(pairs_).first(static_cast<std::size_t>(got));
        }
        const std::size_t count = std::min(samples.size() - done, pairsLeft_.size());
        std::copy_n(pairsLeft_.begin(), count, samples.begin() + static_cast<std::ptrdiff_t>(done));
        pairsLeft_ = pairsLeft_.subspan(count);
        done += count;
    }
    return done;
}

template <class Sample>
std::size_t SndfileReader::ReadConverted(sf_count_t (*read)(SNDFILE*, Sample*, sf_count_t),
                                         std::vector<Sample>& block, std::int16_t* out,
                                         std::size_t frames) {
    block.resize(kBlockValues);
    const auto channels = static_cast<std::size_t>(description_.Delivered.Channels);
    std::size_t done = 0;
    while (done < frames) {
        const std::size_t asked = std::min(frames - done, kBlockValues / channels);
        const auto got = read(handle_.get(), block.data(), static_cast<sf_count_t>(asked));
        if (got <= 0) break;
        const auto values = static_cast<std::size_t>(got) * channels;
        ConvertSamples(block.data(), out + done * channels, values);
        if (check_)
            limited_ += static_cast<std::int64_t>(CountBeyondFullScale(block.data(), values));
        done += static_cast<std::size_t>(got);
    }
    return done;
}

std::size_t SndfileReader::ReadMixed(std::int16_t* out, std::size_t frames) {
    const std::size_t channels = downMix_->Channels();
    const std::size_t block = kBlockValues / channels;
    floats_.resize(block * channels);
    std::size_t done = 0;
    while (done < frames) {
        const std::size_t asked = std::min(frames - done, block);
        const auto got =
            sf_readf_float(handle_.get(), floats_.data(), static_cast<sf_count_t>(asked));
        if (got <= 0) break;
        const auto count = static_cast<std::size_t>(got);
        limited_ += static_cast<std::int64_t>(
            downMix_->Apply(std::span(floats_).first(count * channels), out + 2 * done));
        done += count;
    }
    return done;
}

}  // namespace mavrin2::dusoro
