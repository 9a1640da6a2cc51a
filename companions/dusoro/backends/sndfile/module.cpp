#include "companions/backends/backends.h"
#include "companions/dusoro/backends/sndfile/sndfile_reader.h"
#include "companions/dusoro/backends/sndfile/sndfile_writer.h"

namespace mavrin2::dusoro {
namespace {

class SndfileDecoder final : public Decoder {
public:
    Outcome<std::unique_ptr<SoundReader>> Open(const std::shared_ptr<platform::File>& file,
                                               const ReadingHint& hint) const override {
        return SndfileReader::Open(file, hint);
    }
};

class SndfileEncoder final : public Encoder {
public:
    Outcome<std::unique_ptr<SoundWriter>> Create(platform::File& file,
                                                 const OutputPlan& plan) const override {
        return SndfileWriter::Create(file, plan);
    }
};

}  // namespace
}  // namespace mavrin2::dusoro

MAVRIN2_BACKEND_ENTRY(dusoro, sndfile, Decoder) {
    static const mavrin2::dusoro::SndfileDecoder decoder;
    return &decoder;
}

MAVRIN2_BACKEND_ENTRY(dusoro, sndfile, Encoder) {
    static const mavrin2::dusoro::SndfileEncoder encoder;
    return &encoder;
}
