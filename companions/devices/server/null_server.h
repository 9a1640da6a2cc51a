#pragma once

#include "companions/devices/server/sound_server.h"
#include "platform/clock.h"

namespace mavrin2::devices {

// Stands in where there is no sound server: one device, which consumes sound and delivers silence
// in real time. Its mixer keeps what is set.
class NullServer final : public SoundServer {
public:
    explicit NullServer(std::shared_ptr<platform::Clock> clock) : clock_(std::move(clock)) {}

    // Whether a listed device is this server's.
    bool IsItsOwn(const Device& device) const { return device.Name == device_.Name; }

    Connection Connect(Deadline) override { return Connection::Ready; }
    std::optional<std::vector<Device>> List(Direction direction, Deadline deadline) override;
    bool Change(Direction direction, const std::string& device, const MixerChange& change,
                Deadline deadline) override;
    std::unique_ptr<OutputStream> Play(const StreamRequest& request, SampleSource& source,
                                       Deadline deadline) override;
    std::unique_ptr<InputStream> Record(const StreamRequest& request, SampleSink& sink,
                                        Deadline deadline) override;

private:
    std::shared_ptr<platform::Clock> clock_;
    Device device_ = {"mavrin2-null", "No sound device", true, {}, {}, 100, 0, false, false};
};

}  // namespace mavrin2::devices
