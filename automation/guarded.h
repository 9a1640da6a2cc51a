#pragma once

#include <new>
#include <utility>

#include "platform/automation.h"

namespace mavrin2::automation {

// A failing status on its way to the edge.
struct StatusError {
    HRESULT Status;
};

inline void ThrowIfFailed(HRESULT status) {
    if (FAILED(status)) throw StatusError{status};
}

// Runs the body of an interface method: whatever it throws becomes a status. The body returns a
// status, or nothing for success.
template <class Body>
HRESULT Guarded(Body&& body) noexcept {
    try {
        if constexpr (std::is_void_v<decltype(body())>) {
            std::forward<Body>(body)();
            return S_OK;
        } else {
            return std::forward<Body>(body)();
        }
    } catch (const StatusError& error) {
        return error.Status;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace mavrin2::automation
