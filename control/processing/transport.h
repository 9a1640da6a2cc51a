#pragma once

#include "control/editor/operation.h"
#include "control/editor/ports.h"
#include "control/editor/sample_arrays.h"
#include "control/processing/playback.h"
#include "control/processing/recording.h"
#include "control/processing/transform_companion.h"

namespace mavrin2::processing {

// Stops what is running in the control, and passes on what the devices report. A block loop ends
// when it next checks the status; the transform companion is asked to end early.
class Transport final : public editor::Activity,
                        public editor::LiveSound,
                        public PlaybackListener,
                        public RecordingListener {
public:
    Transport(editor::OperationStatus& status, Playback& playback, Recording& recording,
              TransformCompanion& transforms)
        : status_(status), playback_(playback), recording_(recording), transforms_(transforms) {}

    void Stop() override;
    void Halt() override;

    bool IsLive() const override { return playback_.Playing() || recording_.Active(); }
    Samples RecentSamples(std::int32_t frames) override;

    void BlockDone() override { playback_.FeedBlock(); }
    void PlayedTo(const DevicePosition& position) override { playback_.PlayedTo(position); }
    void EndOfData() override;

    void BlockReady() override;
    void RecordedTo(const DevicePosition& position) override { recording_.RecordedTo(position); }
    void GainChanged(std::int32_t gain) override { recording_.ReportGain(gain); }

private:
    editor::OperationStatus& status_;
    Playback& playback_;
    Recording& recording_;
    TransformCompanion& transforms_;
};

}  // namespace mavrin2::processing
