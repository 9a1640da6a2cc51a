#include "companions/backends/backends.h"
#include "companions/devices/backends/winmm/winmm_server.h"

namespace mavrin2::devices {
namespace {

class WinmmServerMaker final : public SoundServerMaker {
public:
    // The system shows the name of the program.
    std::unique_ptr<SoundServer> Make(const char*) const override {
        return std::make_unique<WinmmServer>();
    }
};

}  // namespace
}  // namespace mavrin2::devices

MAVRIN2_BACKEND_ENTRY(devices, winmm, SoundServerMaker) {
    static const mavrin2::devices::WinmmServerMaker maker;
    return &maker;
}
