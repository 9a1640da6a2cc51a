#pragma once

#include <cstddef>
#include <span>
#include <system_error>

namespace mavrin2::platform {

// Standard input and output as streams of bytes, past the C library's buffers. A call waits as long
// as the other end needs; a request to end the program (platform/interrupt.h) ends the wait with
// the error `operation_canceled`.

// The bytes read into `target`, which is not empty: at least one, or none at the end of the input
// and after an error.
std::size_t ReadStandardInput(std::span<std::byte> target, std::error_code& error);

// Writes all of it. A pipe without a reader is the error `broken_pipe`, and no request to end.
std::error_code WriteStandardOutput(std::span<const std::byte> source);

bool StandardOutputIsTerminal();

// Gives each standard stream that the program was started without one that can be neither read nor
// written. Otherwise the next file to be opened would get its place, and what is meant for the
// stream would go there. To be called first.
void KeepPlacesOfStandardStreams();

}  // namespace mavrin2::platform
