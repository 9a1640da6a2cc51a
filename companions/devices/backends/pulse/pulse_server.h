#pragma once

#include <memory>
#include <string>

#include "companions/devices/backends/pulse/pulse_connection.h"
#include "companions/devices/backends/pulse/pulse_playback.h"

namespace mavrin2::devices {

// PulseAudio, or PipeWire in its place.
class PulseServer final : public SoundServer {
public:
    explicit PulseServer(std::string application) : application_(std::move(application)) {}

    Connection Connect(Deadline deadline) override;
    std::optional<std::vector<Device>> List(Direction direction, Deadline deadline) override;
    bool Change(Direction direction, const std::string& device, const MixerChange& change,
                Deadline deadline) override;
    std::unique_ptr<OutputStream> Play(const StreamRequest& request, SampleSource& source,
                                       Deadline deadline) override;
    std::unique_ptr<InputStream> Record(const StreamRequest& request, SampleSink& sink,
                                        Deadline deadline) override;

private:
    // Drops the connection if a call has waited for nothing.
    void GiveUpAfter(Deadline deadline);

    const std::string application_;
    std::shared_ptr<PulseConnection> connection_;
    std::shared_ptr<PulsePlayback> playback_;  // of the present run, or of the one before
};

}  // namespace mavrin2::devices
