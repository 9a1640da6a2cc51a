#include "companions/dusoro/backends/ffmpeg/ffmpeg_reader.h"

#include <algorithm>
#include <utility>

#include "companions/dusoro/backends/ffmpeg/codec_text.h"
#include "companions/dusoro/backends/ffmpeg/frame_check.h"
#include "companions/dusoro/backends/ffmpeg/ogg_pages.h"
#include "companions/dusoro/backends/ffmpeg/stream_length.h"
#include "companions/dusoro/sound/plausible_length.h"

namespace mavrin2::dusoro {
namespace {

// Demuxers that stumble over damage have usually passed it at the next call.
constexpr int kMostErrorsInARow = 64;

// Checksums inside packets are compared, and what does not fit the coding is refused.
constexpr int kStrict = AV_EF_CRCCHECK | AV_EF_EXPLODE;

// Number of sample frames that the decoder is to drop from a packet's beginning.
std::int64_t SkipOf(const AVPacket& packet) {
    std::size_t size = 0;
    const std::uint8_t* data = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    if (!data || size < 4) return 0;
    return static_cast<std::int64_t>(data[0]) | data[1] << 8 | data[2] << 16 |
           static_cast<std::int64_t>(data[3]) << 24;
}

// Cancels what the demuxer asks to drop from the end of a packet.
void ForgetPadding(AVPacket& packet) {
    std::size_t size = 0;
    std::uint8_t* data = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    if (data && size >= 8) std::fill_n(data + 4, 4, std::uint8_t{0});
}

}  // namespace

Outcome<std::unique_ptr<SoundReader>> FfmpegReader::Open(std::shared_ptr<platform::File> file,
                                                         const ReadingHint& hint) {
    std::unique_ptr<FfmpegReader> reader(new FfmpegReader);
    const std::int64_t bytes = file->Length().value_or(0);
    reader->input_ = AvInput::Open(std::move(file), hint.Extension);
    if (!reader->input_) return SoundError::FormatFile;
    reader->check_ = hint.Check;
    if (const SoundError error = reader->OpenDecoder(); error != SoundError::None) return error;
    if (const SoundError error = reader->Start(); error != SoundError::None) return error;

    reader->Measure(bytes);
    return std::unique_ptr<SoundReader>(std::move(reader));
}

void FfmpegReader::Measure(std::int64_t bytes) {
    const bool empty = frame_->nb_samples == 0;
    const StreamLength length =
        empty ? StreamLength{0, true}
              : MeasureStream(*input_, *stream_, description_.SourceRate, skipped_, chained_);
    description_.Frames = PlausibleFrames(length.Frames, bytes);
    if (length.Exact) left_ = description_.StatedFrames = description_.Frames;
}

SoundError FfmpegReader::OpenDecoder() {
    AVFormatContext& context = input_->Context();
    if (input_->IsDemuxer("ogg")) {
        chained_ = IsChainedOgg(input_->File());
        // The demuxer drops a whole packet too many when the last one ends with the sound. The last
        // page states the length all the same, and nothing after it is delivered.
        endsByLength_ = !chained_;
    }
    const AVCodec* codec = nullptr;
    const int index = av_find_best_stream(&context, AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0);
    if (index == AVERROR_DECODER_NOT_FOUND) return SoundError::FormatNotSupported;
    if (index < 0)
        return input_->KnownByContent() ? SoundError::FormatNotSupported : SoundError::FormatFile;
    for (unsigned i = 0; i < context.nb_streams; ++i)
        if (static_cast<int>(i) != index) context.streams[i]->discard = AVDISCARD_ALL;
    stream_ = context.streams[index];

    decoder_.reset(avcodec_alloc_context3(codec));
    packet_.reset(av_packet_alloc());
    frame_.reset(av_frame_alloc());
    if (!decoder_ || !packet_ || !frame_) return SoundError::Memory;
    decoder_->pkt_timebase = stream_->time_base;
    // Threads pay only where a processor idles, and for few codings even there.
    decoder_->thread_count = 1;
    if (check_) {
        decoder_->err_recognition = kStrict;
        checksum_ = FlacChecksum::Of(*stream_->codecpar);
    }
    if (avcodec_parameters_to_context(decoder_.get(), stream_->codecpar) < 0 ||
        avcodec_open2(decoder_.get(), codec, nullptr) < 0)
        return SoundError::FormatNotSupported;
    return SoundError::None;
}

// Decodes the first frame: only that proves that the file can be read, and gives the rate and the
// channels of codings whose headers understate them.
SoundError FfmpegReader::Start() {
    const bool any = NextFrame();
    const std::int32_t rate = any ? frame_->sample_rate : stream_->codecpar->sample_rate;
    const std::int32_t channels =
        any ? frame_->ch_layout.nb_channels : stream_->codecpar->ch_layout.nb_channels;
    if (rate < 1 || rate > kHighestRate || channels < 1) return SoundError::FormatFile;
    // A file may be whole and end before its first sample.
    if (!any && refused_) return SoundError::FormatFile;

    const CodingText coding = DescribeCoding(input_->Context(), *stream_, rate, channels);
    description_.SourceRate = rate;
    description_.Delivered = {rate, std::min(channels, 2)};
    description_.BitsPerSample = coding.Bits;
    description_.PlainPcm = coding.Pcm;
    description_.Text = coding.Text;
    description_.Format = coding.Format;
    description_.SourceChannels = channels;
    renderer_ = std::make_unique<FrameRenderer>(description_.Delivered.Channels, check_);
    return SoundError::None;
}

std::size_t FfmpegReader::Read(std::span<std::int16_t> samples) {
    const auto channels = static_cast<std::size_t>(description_.Delivered.Channels);
    const auto wanted = static_cast<std::size_t>(
        std::min<std::int64_t>(left_, static_cast<std::int64_t>(samples.size() / channels)));
    std::size_t done = 0;
    while (done < wanted) {
        const auto present = static_cast<std::size_t>(frame_->nb_samples);
        if (rendered_ >= present) {
            if (!NextFrame()) break;
            continue;
        }
        const std::size_t count = std::min(wanted - done, present - rendered_);
        if (renderer_->Render(*frame_, rendered_, count, samples.data() + done * channels))
            done += count;
        rendered_ += count;
    }
    delivered_ += static_cast<std::int64_t>(done);
    const bool all = left_ == static_cast<std::int64_t>(done);
    left_ -= static_cast<std::int64_t>(done);
    if (all || done < wanted) CheckEnd();
    return done;
}

// After the last frame that is delivered.
void FfmpegReader::CheckEnd() {
    if (!check_ || std::exchange(ended_, true)) return;
    SourceFaults file;
    if (input_->IsDemuxer("ogg")) file = CheckOgg(input_->File());
    if (input_->IsDemuxer("mp3")) file = CheckMpeg(input_->File());
    if (input_->IsDemuxer("aac")) file = CheckAdts(input_->File());
    faults_.DamagedBlocks += file.DamagedBlocks;
    faults_.EndMissing = file.EndMissing || partial_ || EndsEarly();
    faults_.ChecksumDiffers =
        file.ChecksumDiffers || (checksum_ && skipped_ == 0 && checksum_->Differs());
}

// Whether the header told of more. Its duration is that of the whole file, in rough steps.
bool FfmpegReader::EndsEarly() const {
    const AVFormatContext& context = input_->Context();
    if (input_->IsDemuxer("ogg") ||
        context.duration_estimation_method != AVFMT_DURATION_FROM_STREAM || context.duration <= 0)
        return false;
    const std::int64_t stated = av_rescale(context.duration, description_.SourceRate, AV_TIME_BASE);
    // In a film the sound may end before the picture.
    const std::int64_t tolerance = context.nb_streams > 1 ? stated / 20 : 0;
    return delivered_ < stated - tolerance - description_.SourceRate / 5;
}

// Replaces frame_ by the next one with sound in it. False at the end.
bool FfmpegReader::NextFrame() {
    rendered_ = 0;
    while (true) {
        const int result = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (result >= 0) {
            if (TakeFrame()) return true;
            continue;
        }
        if (result != AVERROR_EOF && result != AVERROR(EAGAIN)) Refuse();
        if (result == AVERROR_EOF || draining_) {
            av_frame_unref(frame_.get());
            return false;
        }
        if (!FeedDecoder()) {
            draining_ = true;
            avcodec_send_packet(decoder_.get(), nullptr);
        }
    }
}

// A frame at another rate than the first is a damaged one that looks whole.
bool FfmpegReader::TakeFrame() {
    const bool fits =
        description_.SourceRate == 0 || frame_->sample_rate == description_.SourceRate;
    if (!fits || frame_->nb_samples <= 0 || frame_->ch_layout.nb_channels <= 0) {
        Refuse();
        return false;
    }
    if ((frame_->flags & AV_FRAME_FLAG_CORRUPT) != 0 || frame_->decode_error_flags != 0) Refuse();
    faults_.DamagedBlocks += std::exchange(doubtful_, 0);
    if (checksum_) checksum_->Add(*frame_);
    return true;
}

// What is not sound may follow the last of it, so a refusal counts only with sound after it.
void FfmpegReader::Refuse() {
    refused_ = true;
    ++doubtful_;
}

// Gives the decoder the next packet; one that it refuses is left out. False at the end of the file.
bool FfmpegReader::FeedDecoder() {
    int errors = 0;
    while (true) {
        const int result = av_read_frame(&input_->Context(), packet_.get());
        if (result == AVERROR_INVALIDDATA) {
            Refuse();
            if (++errors < kMostErrorsInARow) continue;
        }
        if (result < 0) return false;
        const bool ours = packet_->stream_index == stream_->index;
        if (ours && !std::exchange(begun_, true)) skipped_ = SkipOf(*packet_);
        if (ours && endsByLength_) ForgetPadding(*packet_);
        if (ours) SendPacket();
        av_packet_unref(packet_.get());
        if (ours) return true;
    }
}

// A packet in which the check has found damage is decoded all the same, as it is without one.
void FfmpegReader::SendPacket() {
    if (std::exchange(partial_, (packet_->flags & AV_PKT_FLAG_CORRUPT) != 0)) Refuse();
    if (avcodec_send_packet(decoder_.get(), packet_.get()) >= 0) return;
    Refuse();
    if (!check_) return;
    decoder_->err_recognition = 0;
    avcodec_send_packet(decoder_.get(), packet_.get());
    decoder_->err_recognition = kStrict;
}

}  // namespace mavrin2::dusoro
