#include "companions/backends/backends.h"
#include "companions/dusoro/backends/flac/flac_reader.h"

namespace mavrin2::dusoro {
namespace {

class FlacDecoder final : public Decoder {
public:
    Outcome<std::unique_ptr<SoundReader>> Open(const std::shared_ptr<platform::File>& file,
                                               const ReadingHint& hint) const override {
        return FlacReader::Open(file, hint.Check);
    }
};

}  // namespace
}  // namespace mavrin2::dusoro

MAVRIN2_BACKEND_ENTRY(dusoro, flac, Decoder) {
    static const mavrin2::dusoro::FlacDecoder decoder;
    return &decoder;
}
