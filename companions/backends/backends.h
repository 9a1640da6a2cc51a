#pragma once

#include <memory>
#include <string>

#include "platform/module_loader.h"

// The libraries under a companion are wrapped in its backends, one in each folder below its
// `backends`. A backend offers objects of the companion's interfaces, which live as long as the
// process.
namespace mavrin2::backends {

class Backends {
public:
    virtual ~Backends() = default;

    // What `backend` offers under the name of an interface, which is `Offer` without its namespace.
    // Null if it has no such offer, or it or its library is missing; `reason` then says why, for
    // users.
    template <class Offer>
    const Offer* Find(const std::string& backend, const std::string& offer,
                      std::string& reason) const {
        const auto function = Function(backend, offer, reason);
        return function ? reinterpret_cast<const Offer* (*)()>(function)() : nullptr;
    }

private:
    // The function that returns it, or null.
    virtual platform::Module::Function Function(const std::string& backend,
                                                const std::string& offer,
                                                std::string& reason) const = 0;
};

// Those of the companion that is this module. Each companion defines it, once.
std::shared_ptr<const Backends> OfThisModule();

// The head of the function by which a backend hands out its object. `offer` is an interface in the
// companion's namespace.
#define MAVRIN2_BACKEND_ENTRY(companion, backend, offer) \
    extern "C" __attribute__((visibility("default")))    \
    const mavrin2::companion::offer* Mavrin2_##companion##_##backend##_##offer()

}  // namespace mavrin2::backends
