#pragma once

#include <cstdint>
#include <utility>

namespace mavrin2::dusoro {

// Why a sound file could not be opened or created; the values are those that hosts see.
enum class SoundError : std::int32_t {
    None = 0,
    Memory = -11,
    // Damaged, empty, or nothing that any library here knows.
    FormatFile = -12,
    // A kind of file that is known, but not read or not written here.
    FormatNotSupported = -13,
    // The chosen format has no encoder.
    AcmDriver = -17,
    // Missing, a folder, not permitted, no space.
    FileAccess = -18,
};

// A value, or the reason for its absence.
template <class Value>
struct Outcome {
    // Implicit, so that `return SoundError::FileAccess;` and `return reader;` both read well.
    Outcome(SoundError error) : Error(error) {}
    Outcome(Value value) : Result(std::move(value)) {}

    explicit operator bool() const { return Error == SoundError::None; }

    Value Result{};
    SoundError Error = SoundError::None;
};

}  // namespace mavrin2::dusoro
