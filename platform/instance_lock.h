#pragma once

#include <memory>

namespace mavrin2::platform {

// Tells whether another control is alive, in this process or any other process of this user. Each
// control holds one for its life; a crash frees it.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;

    // Held while cleaning up as the sole instance; giving it back lets others in again.
    class Sole {
    public:
        virtual ~Sole() = default;
    };

    // Nothing when another instance is alive (or the answer cannot be had). While the result lives
    // no other instance can start to live.
    virtual std::unique_ptr<Sole> TryBecomeSole() = 0;
};

}  // namespace mavrin2::platform
