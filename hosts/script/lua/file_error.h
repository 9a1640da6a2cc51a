#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "hosts/binding/call_error.h"

namespace mavrin2::script {

// A failed call that was about a file.
class FileError final : public std::runtime_error {
public:
    // `reason` is the system's, or empty.
    FileError(const binding::CallError& error, std::string file, std::string reason)
        : std::runtime_error(error.what()),
          status_(error.Status()),
          file_(std::move(file)),
          reason_(std::move(reason)) {}

    HRESULT Status() const { return status_; }
    const std::string& File() const { return file_; }
    const std::string& Reason() const { return reason_; }

private:
    HRESULT status_;
    std::string file_;
    std::string reason_;
};

// Why the system cannot open a file: missing, a folder, no permission. Empty if it can, and where
// only its name is missing, which is as it should be for a file to be written.
std::string SystemReason(const std::string& file, bool written);

}  // namespace mavrin2::script
