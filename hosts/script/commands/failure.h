#pragma once

#include <stdexcept>
#include <string>

namespace mavrin2::script {

// Why a command cannot do what it was asked to, as one line for standard error.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;

    Failure(const std::string& subject, const std::string& reason)
        : std::runtime_error(subject + ": " + reason) {}
};

// The command line makes no sense.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The user has asked to stop; everything was cleaned up on the way here.
struct Interruption {};

}  // namespace mavrin2::script
