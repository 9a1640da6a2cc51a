#include "companions/devices/backends/winmm/wave_capture.h"

#include <algorithm>
#include <utility>

#include "companions/devices/backends/winmm/wave_format.h"

namespace mavrin2::devices {
namespace {

// What arrives at a time, and how many such blocks the device has: a second, in which a busy
// machine may not come to take them.
constexpr std::int64_t kBlockMilliseconds = 20;
constexpr int kBlocks = 50;

}  // namespace

std::unique_ptr<WaveCapture> WaveCapture::Begin(UINT device, const Format& format,
                                                SampleSink& sink) {
    auto capture = std::make_unique<WaveCapture>(sink);
    return capture->Open(device, format) ? std::move(capture) : nullptr;
}

bool WaveCapture::Open(UINT device, const Format& format) {
    const WAVEFORMATEX wave = WaveFormatOf(format);
    if (!OpenWave(device, [&](DWORD flags) {
            return ::waveInOpen(&handle_, device, &wave,
                                reinterpret_cast<DWORD_PTR>(done_.Handle()), 0, flags);
        })) {
        handle_ = nullptr;
        return false;
    }
    const std::int64_t frames = std::max<std::int64_t>(format.Rate * kBlockMilliseconds / 1000, 1);
    for (int i = 0; i < kBlocks; ++i) {
        WaveBlock& block = blocks_.emplace_back(
            std::vector<std::int16_t>(static_cast<std::size_t>(frames * format.Channels)));
        if (::waveInPrepareHeader(handle_, &block.Header, sizeof(WAVEHDR)) != MMSYSERR_NOERROR ||
            !Queue(block))
            return false;
    }
    if (::waveInStart(handle_) != MMSYSERR_NOERROR) return false;
    thread_ = std::jthread([this](const std::stop_token& stop) {
        ::SetThreadPriority(::GetCurrentThread(), THREAD_PRIORITY_HIGHEST);
        while (!stop.stop_requested()) {
            done_.Wait();
            Deliver(true);
        }
    });
    return true;
}

WaveCapture::~WaveCapture() {
    if (thread_.joinable()) {
        thread_.request_stop();
        done_.Set();
        thread_.join();
        // The block that is being filled is done now.
        ::waveInStop(handle_);
        Deliver(false);
    }
    if (!handle_) return;
    ::waveInReset(handle_);
    for (WaveBlock& block : blocks_)
        ::waveInUnprepareHeader(handle_, &block.Header, sizeof(WAVEHDR));
    ::waveInClose(handle_);
}

bool WaveCapture::Queue(WaveBlock& block) {
    return ::waveInAddBuffer(handle_, &block.Header, sizeof(WAVEHDR)) == MMSYSERR_NOERROR;
}

void WaveCapture::Deliver(bool again) {
    // One round at most: blocks that the device does not get again stay done.
    for (std::size_t i = 0; i < blocks_.size() && blocks_[next_].IsDone(); ++i) {
        WaveBlock& block = blocks_[next_];
        const std::size_t samples = std::exchange(block.Header.dwBytesRecorded, 0) / 2;
        if (samples > 0)
            sink_.Put(std::span(block.Samples).first(std::min(samples, block.Samples.size())));
        if (again) Queue(block);
        next_ = (next_ + 1) % blocks_.size();
    }
}

}  // namespace mavrin2::devices
