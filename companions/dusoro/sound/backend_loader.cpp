#include "companions/dusoro/sound/backend_loader.h"

#include <dlfcn.h>

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

void* BackendLoader::Symbol(const char* module, const char* entry) const {
    // A second call finds the module by its name and loads nothing.
    const auto path = folder_ / (std::string("libmavrin2-dusoro-") + module + ".so");
    void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE);
    return handle ? dlsym(handle, entry) : nullptr;
}

}  // namespace mavrin2::dusoro
