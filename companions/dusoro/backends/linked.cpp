#include "companions/backends/linked_backends.h"
#include "companions/dusoro/sound/backend.h"

MAVRIN2_BACKEND_ENTRY(dusoro, ffmpeg, Decoder);
MAVRIN2_BACKEND_ENTRY(dusoro, ffmpeg, Encoder);
MAVRIN2_BACKEND_ENTRY(dusoro, flac, Decoder);
MAVRIN2_BACKEND_ENTRY(dusoro, lame, Encoder);
MAVRIN2_BACKEND_ENTRY(dusoro, sndfile, Decoder);
MAVRIN2_BACKEND_ENTRY(dusoro, sndfile, Encoder);
MAVRIN2_BACKEND_ENTRY(dusoro, soxr, ResamplerMaker);

namespace mavrin2::backends {
namespace {

const LinkedBackends::Entry kEntries[] = {
    MAVRIN2_LINKED_BACKEND(dusoro, ffmpeg, Decoder),
    MAVRIN2_LINKED_BACKEND(dusoro, ffmpeg, Encoder),
    MAVRIN2_LINKED_BACKEND(dusoro, flac, Decoder),
    MAVRIN2_LINKED_BACKEND(dusoro, lame, Encoder),
    MAVRIN2_LINKED_BACKEND(dusoro, sndfile, Decoder),
    MAVRIN2_LINKED_BACKEND(dusoro, sndfile, Encoder),
    MAVRIN2_LINKED_BACKEND(dusoro, soxr, ResamplerMaker),
};

}  // namespace

std::shared_ptr<const Backends> OfThisModule() {
    return std::make_shared<LinkedBackends>(kEntries);
}

}  // namespace mavrin2::backends
