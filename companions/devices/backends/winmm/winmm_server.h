#pragma once

#include <memory>
#include <string>

#include "companions/devices/backends/winmm/wave_playback.h"

namespace mavrin2::devices {

// The wave devices and the mixer that every Windows has. It is always there; without any device it
// refuses streams.
class WinmmServer final : public SoundServer {
public:
    Connection Connect(Deadline) override { return Connection::Ready; }
    std::optional<std::vector<Device>> List(Direction direction, Deadline deadline) override;
    bool Change(Direction direction, const std::string& device, const MixerChange& change,
                Deadline deadline) override;
    std::unique_ptr<OutputStream> Play(const StreamRequest& request, SampleSource& source,
                                       Deadline deadline) override;
    std::unique_ptr<InputStream> Record(const StreamRequest& request, SampleSink& sink,
                                        Deadline deadline) override;

private:
    std::shared_ptr<WavePlayback> playback_;  // of the present run, or of the one before
};

}  // namespace mavrin2::devices
