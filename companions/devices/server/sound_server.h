#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

// What a sound server does for the device companions.
namespace mavrin2::devices {

enum class Direction { Output, Input };

struct Format {
    std::int32_t Rate = 44100;  // Hz
    std::int32_t Channels = 2;  // 1 or 2

    bool operator==(const Format&) const = default;
};

// When a call gives up waiting.
using Deadline = std::chrono::steady_clock::time_point;

struct Port {
    std::string Name;         // for the server
    std::string Description;  // for users
    bool InUse = false;
};

struct ChannelVolume {
    std::string Name;
    std::int32_t Percent = 100;
};

struct Device {
    std::string Name;         // for the server
    std::string Description;  // for users
    bool Default = false;
    std::vector<Port> Ports;
    std::vector<ChannelVolume> Channels;
    std::int32_t Volume = 100;  // percent of the slider, of the loudest channel
    std::int32_t Balance = 0;   // -100 … 100
    bool HasBalance = false;
    bool Muted = false;
};

// A change of a device's mixer.
struct MixerChange {
    enum class Control { Volume, Balance, Muted, Channel, Port };

    Control What = Control::Volume;
    std::int32_t Value = 0;  // percent, balance, or 1 for muted; unused for a port
    std::size_t Index = 0;   // of the channel or the port
};

// Where an output stream gets its samples. Called on any thread, on one at a time.
class SampleSource {
public:
    virtual ~SampleSource() = default;
    // Fills the beginning of `samples` with whole interleaved frames; the number of samples.
    virtual std::size_t Take(std::span<std::int16_t> samples) = 0;
};

// Where an input stream delivers its samples, whole interleaved frames. Called on any thread, on
// one at a time.
class SampleSink {
public:
    virtual ~SampleSink() = default;
    virtual void Put(std::span<const std::int16_t> samples) = 0;
};

struct StreamProgress {
    std::int64_t Heard = 0;  // frames; never falls
    bool Lost = false;       // the device or the server has gone
};

// Sound on its way to a device. Any thread. When it is destroyed there is silence at once, and the
// source is not called any more.
class OutputStream {
public:
    virtual ~OutputStream() = default;
    // Takes as many samples as the device has room for. To be called when there are more.
    virtual void Supply() = 0;
    // There will be no more samples: some servers wait for more before they play the last ones.
    virtual void Finish() = 0;
    // To be called every 50 ms or more often: some streams work only then. Does not wait.
    virtual StreamProgress Observe() = 0;
};

// Sound on its way from a device. Any thread. When it is destroyed the sink is not called any more.
class InputStream {
public:
    virtual ~InputStream() = default;
    // As for output.
    virtual void Observe() = 0;
};

struct StreamRequest {
    Format Sound;
    std::string Device;                         // as the server names it; empty: the default device
    std::chrono::milliseconds ExtraLatency{0};  // output only
};

enum class Connection { Ready, Absent, Unresponsive };

// Used on one thread, apart from its streams, which end before it.
class SoundServer {
public:
    virtual ~SoundServer() = default;

    // Connects if that has not been done or the connection has broken. Never starts a server.
    virtual Connection Connect(Deadline deadline) = 0;
    // The rest needs a connection. Nothing, false or null if the server refuses or does not answer
    // in time.
    virtual std::optional<std::vector<Device>> List(Direction direction, Deadline deadline) = 0;
    virtual bool Change(Direction direction, const std::string& device, const MixerChange& change,
                        Deadline deadline) = 0;
    // `source` outlives the stream.
    virtual std::unique_ptr<OutputStream> Play(const StreamRequest& request, SampleSource& source,
                                               Deadline deadline) = 0;
    // `sink` outlives the stream.
    virtual std::unique_ptr<InputStream> Record(const StreamRequest& request, SampleSink& sink,
                                                Deadline deadline) = 0;
};

// What a backend offers.
class SoundServerMaker {
public:
    virtual ~SoundServerMaker() = default;

    // `application` is its name for users.
    virtual std::unique_ptr<SoundServer> Make(const char* application) const = 0;
};

}  // namespace mavrin2::devices
