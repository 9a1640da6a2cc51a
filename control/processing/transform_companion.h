#pragma once

#include <cstdint>

#include "automation/com_ptr.h"
#include "automation/event_sink.h"
#include "automation/limited_samples.h"
#include "companions/contracts/kestrin.h"
#include "control/editor/ports.h"
#include "control/processing/transform_progress.h"

namespace mavrin2::processing {

// The transform companion as the control calls it. What its operations return is ignored: one that
// fails leaves its block as it was.
class TransformCompanion final : public editor::RateObserver {
public:
    explicit TransformCompanion(editor::EditorEvents& events) : progress_(events) {}

    // Listens to its events from then on.
    void Attach(automation::ComPtr<contracts::IKestrin2> companion);
    void Disconnect() { events_.Close(); }
    void Release();

    // To call an operation.
    contracts::IKestrin2& Operations() const { return *companion_.Get(); }
    TransformProgress& Progress() { return progress_; }
    // Samples that it has limited to full scale since it was made; 0 if it cannot say.
    std::int64_t LimitedSamples() const { return automation::LimitedSamplesOf(companion_.Get()); }

    // Of the samples in the blocks that follow, in hertz.
    void SetSampleRate(std::int32_t frequency) override;
    // Whether both ends of a block are blended into the original sound.
    void SetSmoothing(bool on);
    // Length of that blend, in milliseconds.
    void SetSmoothTime(std::int32_t milliseconds);
    // Ends a running operation early; its block is then of no use.
    void Abort();

private:
    TransformProgress progress_;
    automation::ComPtr<contracts::IKestrin2> companion_;
    automation::EventConnection events_;
};

}  // namespace mavrin2::processing
