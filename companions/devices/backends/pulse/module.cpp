#include "companions/backends/backends.h"
#include "companions/devices/backends/pulse/pulse_server.h"

namespace mavrin2::devices {
namespace {

class PulseServerMaker final : public SoundServerMaker {
public:
    std::unique_ptr<SoundServer> Make(const char* application) const override {
        return std::make_unique<PulseServer>(application);
    }
};

}  // namespace
}  // namespace mavrin2::devices

MAVRIN2_BACKEND_ENTRY(devices, pulse, SoundServerMaker) {
    static const mavrin2::devices::PulseServerMaker maker;
    return &maker;
}
