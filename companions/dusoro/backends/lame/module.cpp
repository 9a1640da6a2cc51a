#include "companions/backends/backends.h"
#include "companions/dusoro/backends/lame/lame_writer.h"

namespace mavrin2::dusoro {
namespace {

class LameEncoder final : public Encoder {
public:
    Outcome<std::unique_ptr<SoundWriter>> Create(platform::File& file,
                                                 const OutputPlan& plan) const override {
        return LameWriter::Create(file, plan);
    }
};

}  // namespace
}  // namespace mavrin2::dusoro

MAVRIN2_BACKEND_ENTRY(dusoro, lame, Encoder) {
    static const mavrin2::dusoro::LameEncoder encoder;
    return &encoder;
}
