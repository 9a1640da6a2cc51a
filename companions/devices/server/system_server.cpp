#include "companions/devices/server/system_server.h"

namespace mavrin2::devices {

std::unique_ptr<SoundServer> MakeSystemServer(const backends::Backends& backends) {
    std::string reason;
    // A system has one of them.
    for (const char* backend : {"pulse", "winmm"})
        if (const auto* maker =
                backends.Find<SoundServerMaker>(backend, "SoundServerMaker", reason))
            return maker->Make("Mavrin2");
    return nullptr;
}

ServerAccess SystemServers() {
    return {[] { return MakeSystemServer(*backends::OfThisModule()); }, platform::SystemClock()};
}

}  // namespace mavrin2::devices
