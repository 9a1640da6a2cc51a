#include "companions/dusoro/sound/backend_loader.h"

namespace mavrin2::dusoro {

const Decoder* BackendLoader::DecoderFor(DecoderKind kind) const {
    switch (kind) {
        case DecoderKind::Sndfile:
            return Find<Decoder>("sndfile", kDecoderEntry);
        case DecoderKind::Flac:
            return Find<Decoder>("flac", kDecoderEntry);
        default:
            return Find<Decoder>("ffmpeg", kDecoderEntry);
    }
}

const Encoder* BackendLoader::EncoderOf(EncoderKind kind) const {
    switch (kind) {
        case EncoderKind::Sndfile:
            return Find<Encoder>("sndfile", kEncoderEntry);
        case EncoderKind::Lame:
            return Find<Encoder>("lame", kEncoderEntry);
        case EncoderKind::Ffmpeg:
            return Find<Encoder>("ffmpeg", kEncoderEntry);
        default:
            return nullptr;
    }
}

platform::Module::Function BackendLoader::Entry(const char* name, const char* entry) const {
    std::string reason;  // a missing library makes its formats unsupported, nothing else
    const auto module =
        modules_->Load(folder_ / (std::string("libmavrin2-dusoro-") + name + ".so"), reason);
    return module ? module->Find(entry) : nullptr;
}

}  // namespace mavrin2::dusoro
