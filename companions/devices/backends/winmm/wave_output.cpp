#include "companions/devices/backends/winmm/wave_output.h"

#include <algorithm>

#include "companions/devices/backends/winmm/wave_format.h"

namespace mavrin2::devices {
namespace {

// What is queued at a time: how often a block is done, and so how long room may stay unused.
constexpr std::int64_t kBlockMilliseconds = 20;

}  // namespace

std::unique_ptr<WaveOutput> WaveOutput::Open(UINT device, const Format& format, WakeEvent& done) {
    const WAVEFORMATEX wave = WaveFormatOf(format);
    HWAVEOUT handle = nullptr;
    const bool opened = OpenWave(device, [&](DWORD flags) {
        return ::waveOutOpen(&handle, device, &wave, reinterpret_cast<DWORD_PTR>(done.Handle()), 0,
                             flags);
    });
    return opened ? std::make_unique<WaveOutput>(handle, format) : nullptr;
}

WaveOutput::WaveOutput(HWAVEOUT handle, const Format& format)
    : handle_(handle),
      format_(format),
      blockSamples_(static_cast<std::size_t>(
          std::max<std::int64_t>(format.Rate * kBlockMilliseconds / 1000, 1) * format.Channels)) {
    if (const auto reading = Reading()) counter_.Restart(*reading);
}

WaveOutput::~WaveOutput() {
    Silence();
    ::waveOutClose(handle_);
}

bool WaveOutput::Write(std::span<const std::int16_t> samples) {
    while (!samples.empty()) {
        const auto part = samples.first(std::min(samples.size(), blockSamples_));
        if (!Queue(blocks_.emplace_back(std::vector(part.begin(), part.end())))) {
            Release(blocks_.back());
            blocks_.pop_back();
            return false;
        }
        waiting_ += static_cast<std::int64_t>(part.size());
        written_ += static_cast<std::int64_t>(part.size()) / format_.Channels;
        samples = samples.subspan(part.size());
    }
    return true;
}

bool WaveOutput::Queue(WaveBlock& block) {
    return ::waveOutPrepareHeader(handle_, &block.Header, sizeof(WAVEHDR)) == MMSYSERR_NOERROR &&
           ::waveOutWrite(handle_, &block.Header, sizeof(WAVEHDR)) == MMSYSERR_NOERROR;
}

void WaveOutput::Release(WaveBlock& block) {
    ::waveOutUnprepareHeader(handle_, &block.Header, sizeof(WAVEHDR));
}

std::int64_t WaveOutput::Waiting() {
    while (!blocks_.empty() && blocks_.front().IsDone()) {
        waiting_ -= static_cast<std::int64_t>(blocks_.front().Samples.size());
        Release(blocks_.front());
        blocks_.pop_front();
    }
    return waiting_;
}

// In bytes, from which drivers derive other units: those begin again earlier, at other numbers than
// 2^32.
std::optional<std::uint32_t> WaveOutput::Reading() {
    MMTIME time{};
    time.wType = TIME_BYTES;
    if (::waveOutGetPosition(handle_, &time, sizeof time) != MMSYSERR_NOERROR) return std::nullopt;
    unit_ = time.wType;
    switch (unit_) {
        case TIME_SAMPLES:
            return time.u.sample;
        case TIME_MS:
            return time.u.ms;
        default:
            return time.u.cb;
    }
}

std::int64_t WaveOutput::FramesOf(std::int64_t count) const {
    switch (unit_) {
        case TIME_SAMPLES:
            return count;
        case TIME_MS:
            return count * format_.Rate / 1000;
        default:
            return count / 2 / format_.Channels;
    }
}

std::optional<std::int64_t> WaveOutput::Heard() {
    const auto reading = Reading();
    if (!reading) return std::nullopt;
    return std::max<std::int64_t>(FramesOf(counter_.Advance(*reading)) - before_, 0);
}

void WaveOutput::Reset() {
    // Where all is played, by its counter or by what it gives back, a device may still hold the
    // end.
    const auto heard = Heard();
    if (Waiting() == 0 || heard == written_ - before_) {
        before_ = written_;
        return;
    }
    Silence();
    if (const auto reading = Reading()) counter_.Restart(*reading);
}

void WaveOutput::Silence() {
    ::waveOutReset(handle_);
    for (WaveBlock& block : blocks_)
        Release(block);
    blocks_.clear();
    waiting_ = written_ = before_ = 0;
}

}  // namespace mavrin2::devices
