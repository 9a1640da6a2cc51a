#pragma once

#include "companions/contracts/velto.h"
#include "control/processing/device_companion.h"

namespace mavrin2::processing {

// What the playback companion reports while its device runs.
class PlaybackListener {
public:
    virtual ~PlaybackListener() = default;

    // A block has gone to the device: the next one is due.
    virtual void BlockDone() = 0;
    virtual void PlayedTo(const DevicePosition& position) = 0;
    // All blocks were heard, or the device has failed.
    virtual void EndOfData() = 0;
};

// The playback companion as the control calls it.
class PlaybackCompanion final : public DeviceCompanion<contracts::IVelto2> {
public:
    using DeviceCompanion::DeviceCompanion;

    // Listens to its events from then on.
    void Attach(automation::ComPtr<contracts::IVelto2> companion);
    // Null before there is one, and after it has gone.
    void Listen(PlaybackListener* listener) { listener_ = listener; }

    void SetExtraLatency(std::int32_t milliseconds) {
        Call(&contracts::IVelto2::put_ExtraLatency, LONG{milliseconds});
    }
    // Of stereo sound: 1 left only, 2 right only, 3 both.
    void SetOutputChannels(std::int32_t channels) {
        Call(&contracts::IVelto2::SetOutputChannels, LONG{channels});
    }
    void QueueBlock(SamplesBlock& block) { Call(&contracts::IVelto2::QueueBlock, block.Address()); }

private:
    HRESULT OnEvent(DISPID event, const automation::EventArguments& arguments);

    PlaybackListener* listener_ = nullptr;
};

}  // namespace mavrin2::processing
