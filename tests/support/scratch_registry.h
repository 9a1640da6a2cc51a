#pragma once

#include <memory>

namespace mavrin2::tests {

// An empty component registry in the place of this process's own, until the end of the scope.
class ScratchRegistry {
public:
    ScratchRegistry();
    ~ScratchRegistry();
    ScratchRegistry(const ScratchRegistry&) = delete;
    ScratchRegistry& operator=(const ScratchRegistry&) = delete;

    // From now on it cannot be written.
    void ForbidWriting();

private:
    struct Place;
    std::unique_ptr<Place> place_;
};

}  // namespace mavrin2::tests
