#pragma once

#include <cstdint>
#include <span>

#include "control/signal/quantity.h"

namespace mavrin2::processing {

// What playback and recording show, beyond what every change of the document does. Whatever draws
// may run a host's code: a host may put in its own objects for colours and scales.
class TransportView {
public:
    virtual ~TransportView() = default;

    // Shows the play cursor at that place of the document, over the picture that there is.
    virtual void MovePlayCursor(signal::Bytes position) = 0;
    // The stored range of the view has changed, but its sound is not read: the time scale follows.
    virtual void FollowRecording() = 0;
    // The lanes show these interleaved samples from the next frame on.
    virtual void ShowLive(std::span<const std::int16_t> samples) = 0;
};

// Events for the host. Host code runs inside each call and may do anything.
class TransportEvents {
public:
    virtual ~TransportEvents() = default;

    // Levels as the companions give them.
    virtual void Meter(std::int32_t left, std::int32_t right) = 0;
    virtual void ChangePlayPosition() = 0;
    virtual void EndPlay() = 0;
    // The gain of the automatic gain control, as the companion gives it.
    virtual void GainChange(std::int32_t gain) = 0;
};

}  // namespace mavrin2::processing
