#pragma once

#include <memory>

namespace mavrin2::platform {

// Tells whether another control is alive, in this process or any other process of this user,
// whatever temporary folder its environment sets. Each control holds one for its
// life; a crash frees it. No other user can hold, take or block it.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;

    // Held while cleaning up as the sole instance; releasing it lets others in again.
    class Sole {
    public:
        virtual ~Sole() = default;
    };

    // Null if another instance is alive, or may be. While the result exists, no other instance can
    // start.
    virtual std::unique_ptr<Sole> TryBecomeSole() = 0;
};

}  // namespace mavrin2::platform
