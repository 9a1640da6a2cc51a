#pragma once

#include <span>
#include <string_view>

#include "companions/backends/backends.h"

namespace mavrin2::backends {

// Backends that are linked into the companion.
class LinkedBackends final : public Backends {
public:
    struct Entry {
        template <class Offered>
        Entry(std::string_view backend, std::string_view offer, const Offered* (*function)())
            : Backend(backend),
              Offer(offer),
              Function(reinterpret_cast<platform::Module::Function>(function)) {}

        std::string_view Backend;
        std::string_view Offer;
        platform::Module::Function Function;
    };

    explicit LinkedBackends(std::span<const Entry> entries) : entries_(entries) {}

private:
    platform::Module::Function Function(const std::string& backend, const std::string& offer,
                                        std::string& reason) const override {
        for (const Entry& entry : entries_)
            if (entry.Backend == backend && entry.Offer == offer) return entry.Function;
        reason = backend + " is not part of this program";
        return nullptr;
    }

    std::span<const Entry> entries_;
};

// A row of the table, for a function whose head is declared by MAVRIN2_BACKEND_ENTRY.
#define MAVRIN2_LINKED_BACKEND(companion, backend, offer)      \
    mavrin2::backends::LinkedBackends::Entry(#backend, #offer, \
                                             Mavrin2_##companion##_##backend##_##offer)

}  // namespace mavrin2::backends
