#pragma once

#include <memory>

#include "companions/devices/backends/pulse/pulse_connection.h"

namespace mavrin2::devices {

// A recording stream of the server. When it or the server has gone, nothing arrives any more.
class PulseCapture final : public InputStream {
public:
    PulseCapture(std::shared_ptr<PulseConnection> connection, Format format, SampleSink& sink);
    ~PulseCapture() override;

    // Waits for the server. False if it refuses the stream or does not answer in time.
    bool Begin(const std::string& device, Deadline deadline);

    void Observe() override {}

private:
    void Read();
    void ResetVolume(Deadline deadline);

    const std::shared_ptr<PulseConnection> connection_;
    const Format format_;
    SampleSink& sink_;
    pa_stream* stream_ = nullptr;
    std::vector<std::int16_t> silence_;
};

}  // namespace mavrin2::devices
