#include <cdio/cdio.h>
#include <cdio/logging.h>

#include "companions/backends/backends.h"
#include "companions/pindle/backends/cdio/cdio_disc.h"

namespace mavrin2::pindle {
namespace {

class CdioLibrary final : public DiscLibrary {
public:
    // The library writes to the terminal otherwise.
    CdioLibrary() {
        cdio_log_set_handler([](cdio_log_level_t, const char*) {});
    }

    std::vector<std::string> Devices() const override {
        std::vector<std::string> names;
        char** devices = cdio_get_devices(DRIVER_DEVICE);
        for (char** device = devices; device && *device; ++device)
            names.emplace_back(*device);
        if (devices) cdio_free_device_list(devices);
        return names;
    }
    std::unique_ptr<Disc> Open(const std::string& path) const override {
        return CdioDisc::Open(path);
    }
};

}  // namespace
}  // namespace mavrin2::pindle

MAVRIN2_BACKEND_ENTRY(pindle, cdio, DiscLibrary) {
    static const mavrin2::pindle::CdioLibrary library;
    return &library;
}
