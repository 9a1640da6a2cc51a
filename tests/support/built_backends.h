#pragma once

#include "companions/backends/linked_backends.h"

namespace mavrin2::tests {

// The backends that this build has made for a companion, which the test program is linked with.
std::shared_ptr<const backends::Backends> BuiltBackends(const char* companion);

// Those of an installation that lacks all of them.
inline std::shared_ptr<const backends::Backends> NoBackends() {
    return std::make_shared<backends::LinkedBackends>(
        std::span<const backends::LinkedBackends::Entry>());
}

}  // namespace mavrin2::tests
