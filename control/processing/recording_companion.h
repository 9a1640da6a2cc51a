#pragma once

#include "companions/contracts/rimbal.h"
#include "control/processing/device_companion.h"

namespace mavrin2::processing {

// What the capture companion reports.
class RecordingListener {
public:
    virtual ~RecordingListener() = default;

    // A block can be taken.
    virtual void BlockReady() = 0;
    virtual void RecordedTo(const DevicePosition& position) = 0;
    virtual void GainChanged(std::int32_t gain) = 0;
};

// The capture companion as the control calls it.
class RecordingCompanion final : public DeviceCompanion<contracts::IRimbal2> {
public:
    using DeviceCompanion::DeviceCompanion;

    // Listens to its events from then on.
    void Attach(automation::ComPtr<contracts::IRimbal2> companion);
    // Null before there is one, and after it has gone.
    void Listen(RecordingListener* listener) { listener_ = listener; }

    void DisableFilters();
    void SetBufferFrames(std::int32_t frames) {
        Call(&contracts::IRimbal2::SetBufferFrames, LONG{frames});
    }
    // The next block; without samples if nothing is waiting.
    SamplesBlock ReadBlock() {
        SamplesBlock block;
        Call(&contracts::IRimbal2::ReadBlock, block.Put());
        return block;
    }

private:
    HRESULT OnEvent(DISPID event, const automation::EventArguments& arguments);

    RecordingListener* listener_ = nullptr;
};

}  // namespace mavrin2::processing
