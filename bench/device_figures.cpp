#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <mutex>
#include <span>
#include <stdexcept>
#include <thread>

#include "automation/com_ptr.h"
#include "automation/event_sink.h"
#include "automation/guarded.h"
#include "automation/safe_array.h"
#include "bench/figures.h"
#include "bench/measure.h"
#include "companions/contracts/rimbal.h"
#include "companions/contracts/velto.h"
#include "platform/posting.h"
#include "tests/support/sound_server/sound_server.h"

namespace mavrin2::bench {
namespace {

using namespace std::chrono_literals;
using Moment = std::chrono::steady_clock::time_point;
using contracts::VeltoEvent;
using tests::Samples;

constexpr int kRate = 44100;

double Milliseconds(Moment from, Moment to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

Moment Now() {
    return std::chrono::steady_clock::now();
}

void Pump(std::chrono::milliseconds time) {
    platform::PostingQueue::OfThisThread()->Pump(time);
}

template <class Interface>
automation::ComPtr<Interface> Create(REFCLSID id) {
    automation::ComPtr<Interface> object;
    automation::ThrowIfFailed(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, Interface::Id,
                                               reinterpret_cast<void**>(object.Put())));
    return object;
}

// What a sink plays, with the time at which each piece arrived: parec in pieces of 5 ms.
class Monitor {
public:
    Monitor()
        : pipe_(popen("exec parec -d speaker.monitor --latency-msec=5 --raw --rate=44100 "
                      "--channels=2 2>/dev/null",
                      "r")) {
        if (!pipe_) throw std::runtime_error("parec does not start");
        reader_ = std::thread([this] { Read(); });
        while (Frames() < kRate / 20)
            std::this_thread::sleep_for(5ms);
    }
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;
    ~Monitor() {
        ended_ = true;
        reader_.join();
        pclose(pipe_);
    }

    std::size_t Frames() {
        const std::lock_guard lock(mutex_);
        return samples_.size() / 2;
    }
    // When the first piece with sound after `from` arrived; the last one.
    Moment FirstSound(Moment from) {
        return SoundAt(from, [](Moment& found, Moment at) {
            if (found == Moment()) found = at;
        });
    }
    Moment LastSound(Moment from) {
        return SoundAt(from, [](Moment& found, Moment at) { found = at; });
    }
    // Frames without sound in succession, between the first and the last sound.
    std::size_t LongestGap() {
        std::size_t longest = 0;
        std::size_t gap = 0;
        bool begun = false;
        const std::lock_guard lock(mutex_);
        for (std::size_t i = 0; i < samples_.size(); i += 2) {
            if (samples_[i] != 0) {
                if (begun) longest = std::max(longest, gap);
                begun = true;
                gap = 0;
            } else {
                ++gap;
            }
        }
        return longest;
    }
    // Frames with sound that have been played now.
    double SoundFrames() {
        const std::lock_guard lock(mutex_);
        const auto sound = static_cast<double>(sound_);
        if (pieces_.empty() || sound_ == 0) return sound;
        return sound + Milliseconds(pieces_.back().Arrived, Now()) * kRate / 1000;
    }

private:
    struct Piece {
        Moment Arrived;
        std::size_t End;  // samples so far
    };

    void Read() {
        std::int16_t buffer[2048];
        while (!ended_) {
            const ssize_t bytes = ::read(fileno(pipe_), buffer, sizeof buffer);
            if (bytes <= 0) return;
            const std::lock_guard lock(mutex_);
            const auto count = static_cast<std::size_t>(bytes) / 2;
            samples_.insert(samples_.end(), buffer, buffer + count);
            for (std::size_t i = 0; i < count; i += 2)
                if (buffer[i] != 0) ++sound_;
            pieces_.push_back({Now(), samples_.size()});
        }
    }
    template <class Use>
    Moment SoundAt(Moment from, Use use) {
        Moment found;
        const std::lock_guard lock(mutex_);
        std::size_t begin = 0;
        for (const Piece& piece : pieces_) {
            const std::span samples = std::span(samples_).subspan(begin, piece.End - begin);
            begin = piece.End;
            if (piece.Arrived > from &&
                std::ranges::any_of(samples, [](std::int16_t sample) { return sample != 0; }))
                use(found, piece.Arrived);
        }
        return found;
    }

    FILE* pipe_;
    std::mutex mutex_;
    Samples samples_;
    std::vector<Piece> pieces_;
    std::size_t sound_ = 0;
    std::atomic<bool> ended_ = false;
    std::thread reader_;
};

// A host that plays noise without an end, in blocks of half a second, two at a time.
class Host {
public:
    Host() {
        const Samples noise = tests::Noise(kRate);
        std::copy(noise.begin(), noise.end(),
                  automation::ArrayView<std::int16_t>(block_.Get()).Elements().begin());
        automation::ThrowIfFailed(
            connection_.Open(player_.Get(), contracts::DIID_IVelto2Events,
                             [this](DISPID event, const automation::EventArguments& values) {
                                 if (event == static_cast<DISPID>(VeltoEvent::BlockDone))
                                     player_->QueueBlock(block_.Address());
                                 LONG frames = 0;
                                 if (event == static_cast<DISPID>(VeltoEvent::Position) &&
                                     OnPosition && values.Read(0, frames))
                                     OnPosition(frames);
                                 return S_OK;
                             }));
        player_->put_TimerInterval(10);
    }

    void Play() {
        LONG error = 0;
        player_->StopDevice();
        player_->SetFormat(kRate, 2);
        player_->PrepareDevice();
        player_->StartDevice(&error);
        if (error != 0) throw std::runtime_error("the device does not start");
        player_->QueueBlock(block_.Address());
        player_->QueueBlock(block_.Address());
    }
    void Stop() { player_->StopDevice(); }

    std::function<void(LONG)> OnPosition;

private:
    automation::SafeArray<std::int16_t> block_{kRate};
    automation::ComPtr<contracts::IVelto2> player_ =
        Create<contracts::IVelto2>(contracts::CLSID_KovVelto);
    automation::EventConnection connection_;
};

void Print(const std::string& task, const std::vector<double>& values, double limit) {
    PrintValue(task, Median(values), "ms", limit);
    PrintValue(task + ", the worst of " + std::to_string(values.size()),
               *std::ranges::max_element(values), "ms", limit);
}

void PrintDelays() {
    std::vector<double> first;
    std::vector<double> again;
    std::vector<double> silence;
    std::vector<double> gaps;
    for (int round = 0; round < 10; ++round) {
        Host host;
        Monitor monitor;
        const auto play = [&](std::vector<double>& delays) {
            const Moment begin = Now();
            host.Play();
            Pump(400ms);
            delays.push_back(Milliseconds(begin, monitor.FirstSound(begin)));
        };
        play(first);
        const Moment stop = Now();
        host.Stop();
        Pump(200ms);
        silence.push_back(std::max(Milliseconds(stop, monitor.LastSound(stop - 50ms)), 0.0));
        Pump(1100ms);
        play(again);
        Monitor turn;
        for (int i = 0; i < 10; ++i) {
            host.Play();
            Pump(95ms);
        }
        gaps.push_back(static_cast<double>(turn.LongestGap()) * 1000 / kRate);
    }
    Print("Playing to the first sample on the monitor, connecting included", first, 50);
    Print("Playing again, connected", again, 50);
    Print("`StopDevice` to silence", silence, 50);
    Print("Silence where a run replaces another, ten times", gaps, 1);
}

void PrintPosition() {
    Host host;
    Monitor monitor;
    std::vector<double> off;
    host.OnPosition = [&](LONG frames) {
        const double heard = monitor.SoundFrames();
        if (heard > kRate / 5) off.push_back(std::abs(frames - heard) * 1000 / kRate);
    };
    host.Play();
    Pump(10s);
    Print("Position beside the monitor", off, 10);
}

// Processor time of this process in percent of the time that passes.
double Share(std::chrono::milliseconds time) {
    return SecondsOf([&] { Pump(time); }, Clock::Processor) * 100 /
           std::chrono::duration<double>(time).count();
}

void PrintShares() {
    {
        Host host;
        host.Play();
        Pump(500ms);
        PrintValue("Playing, of one core", Share(10s), "%", 2);
    }
    const auto recorder = Create<contracts::IRimbal2>(contracts::CLSID_KovRimbal2);
    automation::EventConnection connection;
    std::size_t recorded = 0;
    Moment begun;
    Moment last;
    std::size_t before = 0;
    automation::ThrowIfFailed(connection.Open(
        recorder.Get(), contracts::DIID_IRimbal2Events,
        [&](DISPID event, const automation::EventArguments&) {
            if (event != static_cast<DISPID>(contracts::RimbalEvent::BlockReady)) return S_OK;
            automation::SafeArray<std::int16_t> block;
            recorder->ReadBlock(block.Put());
            recorded += automation::ArrayView<std::int16_t>(block.Get()).Elements().size() / 2;
            last = Now();
            if (begun == Moment()) {
                begun = last;
                before = recorded;
            }
            return S_OK;
        }));
    recorder->put_TimerInterval(10);
    recorder->SetFormat(kRate, 2);
    recorder->SetBufferFrames(kRate / 2);
    LONG error = 0;
    recorder->StartDevice(&error);
    Pump(500ms);
    PrintValue("Recording, of one core", Share(30s), "%", 5);
    PrintValue(
        "Recorded in 30 s, beside the clock",
        (static_cast<double>(recorded - before) * 1000 / kRate / Milliseconds(begun, last) - 1) *
            100,
        "%", 0.01);
    for (const auto enable : {&contracts::IRimbal2::put_NotchFilterEnabled,
                              &contracts::IRimbal2::put_HighPassFilterEnabled,
                              &contracts::IRimbal2::put_LowPassFilterEnabled})
        ((*recorder.Get()).*enable)(1);
    recorder->put_AGCEnabled(1);
    PrintValue("Recording through filters and gain control, of one core", Share(10s), "%", 5);
    recorder->StopDevice();
}

void PrintUnderruns() {
    constexpr auto kTime = 120s;
    Host host;
    host.Play();
    std::vector<std::unique_ptr<tests::Program>> busy;
    for (int i = 0; i < 4; ++i)
        busy.push_back(std::make_unique<tests::Program>(
            std::vector<std::string>{"sh", "-c", "while :; do :; done"}, "/dev/null"));
    Monitor monitor;
    Pump(kTime);
    PrintValue("Longest gap in two minutes beside four busy processes",
               static_cast<double>(monitor.LongestGap()) * 1000 / kRate, "ms", 0);
}

}  // namespace

void PrintDeviceFigures() {
    tests::TestServer server;
    PrintDelays();
    PrintPosition();
    PrintShares();
    PrintUnderruns();
}

}  // namespace mavrin2::bench
