#include "companions/dusoro/sound/sound_backends.h"

namespace mavrin2::dusoro {

const Decoder* SoundBackends::DecoderFor(DecoderKind kind) const {
    const auto find = [this](const char* backend) {
        std::string reason;
        return backends_->Find<Decoder>(backend, "Decoder", reason);
    };
    switch (kind) {
        case DecoderKind::Sndfile:
            return find("sndfile");
        case DecoderKind::Flac:
            return find("flac");
        default:
            return find("ffmpeg");
    }
}

const Encoder* SoundBackends::EncoderOf(EncoderKind kind) const {
    const auto find = [this](const char* backend) {
        std::string reason;
        return backends_->Find<Encoder>(backend, "Encoder", reason);
    };
    switch (kind) {
        case EncoderKind::Sndfile:
            return find("sndfile");
        case EncoderKind::Lame:
            return find("lame");
        case EncoderKind::Ffmpeg:
            return find("ffmpeg");
        default:
            return nullptr;
    }
}

const ResamplerMaker* SoundBackends::Soxr() const {
    std::string reason;
    return backends_->Find<ResamplerMaker>("soxr", "ResamplerMaker", reason);
}

}  // namespace mavrin2::dusoro
