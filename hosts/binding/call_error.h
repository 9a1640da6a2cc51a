#pragma once

#include <stdexcept>
#include <string>

#include "platform/automation.h"

namespace mavrin2::binding {

// A sentence for a failing status, where the component gave no description of its failure.
std::string StatusText(HRESULT status);

// A status as it is usually written: 0x80040309.
std::string StatusNumber(HRESULT status);

// A failed call. what() is the component's description of the failure, or else that of the status.
class CallError final : public std::runtime_error {
public:
    CallError(HRESULT status, const std::string& description)
        : std::runtime_error(description), status_(status) {}

    HRESULT Status() const { return status_; }

private:
    HRESULT status_;
};

}  // namespace mavrin2::binding
