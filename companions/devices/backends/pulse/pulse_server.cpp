#include "companions/devices/backends/pulse/pulse_server.h"

#include "companions/devices/backends/pulse/pulse_capture.h"
#include "companions/devices/backends/pulse/pulse_devices.h"

namespace mavrin2::devices {
namespace {

// One run of a stream that may play others after it.
class PulseOutput final : public OutputStream {
public:
    explicit PulseOutput(std::shared_ptr<PulsePlayback> playback)
        : playback_(std::move(playback)) {}
    PulseOutput(const PulseOutput&) = delete;
    PulseOutput& operator=(const PulseOutput&) = delete;
    ~PulseOutput() override { playback_->End(); }

    void Supply() override { playback_->Supply(); }
    void Finish() override { playback_->Finish(); }
    StreamProgress Observe() override { return playback_->Observe(); }

private:
    const std::shared_ptr<PulsePlayback> playback_;
};

}  // namespace

Connection PulseServer::Connect(Deadline deadline) {
    if (connection_ && connection_->IsReady()) return Connection::Ready;
    playback_.reset();
    connection_ = std::make_shared<PulseConnection>(application_);
    const Connection outcome = connection_->Open(deadline);
    if (outcome != Connection::Ready) connection_.reset();
    return outcome;
}

void PulseServer::GiveUpAfter(Deadline deadline) {
    if (std::chrono::steady_clock::now() < deadline) return;
    playback_.reset();
    connection_.reset();
}

std::optional<std::vector<Device>> PulseServer::List(Direction direction, Deadline deadline) {
    auto devices = ListDevices(*connection_, direction, deadline);
    if (!devices) GiveUpAfter(deadline);
    return devices;
}

bool PulseServer::Change(Direction direction, const std::string& device, const MixerChange& change,
                         Deadline deadline) {
    const bool changed = ChangeMixer(*connection_, direction, device, change, deadline);
    if (!changed) GiveUpAfter(deadline);
    return changed;
}

std::unique_ptr<OutputStream> PulseServer::Play(const StreamRequest& request, SampleSource& source,
                                                Deadline deadline) {
    if (!playback_ || !playback_->Fits(*connection_, request) || !playback_->IsUsable())
        playback_ = std::make_shared<PulsePlayback>(connection_, request);
    if (!playback_->Begin(source, deadline)) {
        playback_.reset();
        GiveUpAfter(deadline);
        return nullptr;
    }
    return std::make_unique<PulseOutput>(playback_);
}

std::unique_ptr<InputStream> PulseServer::Record(const StreamRequest& request, SampleSink& sink,
                                                 Deadline deadline) {
    auto capture = std::make_unique<PulseCapture>(connection_, request.Sound, sink);
    if (capture->Begin(request.Device, deadline)) return capture;
    capture.reset();
    GiveUpAfter(deadline);
    return nullptr;
}

}  // namespace mavrin2::devices
