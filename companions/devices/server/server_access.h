#pragma once

#include <functional>
#include <memory>

#include "companions/devices/server/null_server.h"
#include "companions/devices/server/sound_server.h"

namespace mavrin2::devices {

// No call of a companion waits longer for a server than this, however many steps it has.
inline Deadline Patience() {
    return std::chrono::steady_clock::now() + std::chrono::milliseconds(900);
}

// The server that a companion uses: the sound server or, while none runs, the null server.
class ServerAccess {
public:
    // Null if the sound library is missing.
    using Loader = std::function<std::unique_ptr<SoundServer>()>;

    // Loads nothing yet.
    ServerAccess(Loader loader, std::shared_ptr<platform::Clock> clock)
        : loader_(std::move(loader)), null_(std::move(clock)) {}

    // Null if there is a sound server but it does not answer.
    SoundServer* Reach(Deadline deadline);
    NullServer& Null() { return null_; }

private:
    Loader loader_;
    bool loaded_ = false;
    std::unique_ptr<SoundServer> server_;
    NullServer null_;
};

}  // namespace mavrin2::devices
