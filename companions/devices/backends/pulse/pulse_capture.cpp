#include "companions/devices/backends/pulse/pulse_capture.h"

namespace mavrin2::devices {
namespace {

// What arrives at a time.
constexpr pa_usec_t kFragment = 20'000;

}  // namespace

PulseCapture::PulseCapture(std::shared_ptr<PulseConnection> connection, Format format,
                           SampleSink& sink)
    : connection_(std::move(connection)), format_(format), sink_(sink) {}

PulseCapture::~PulseCapture() {
    if (!stream_) return;
    const PulseLock lock(*connection_);
    pa_stream_set_read_callback(stream_, nullptr, nullptr);
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
}

bool PulseCapture::Begin(const std::string& device, Deadline deadline) {
    {
        const PulseLock lock(*connection_);
        pa_sample_spec format{};
        format.format = PA_SAMPLE_S16NE;
        format.rate = static_cast<std::uint32_t>(format_.Rate);
        format.channels = static_cast<std::uint8_t>(format_.Channels);
        stream_ = pa_stream_new(connection_->Context(), "Recording", &format, nullptr);
        if (!stream_) return false;
        pa_stream_set_state_callback(
            stream_, [](pa_stream*, void* c) { static_cast<PulseConnection*>(c)->Notify(); },
            connection_.get());
        pa_stream_set_read_callback(
            stream_,
            [](pa_stream*, std::size_t, void* self) { static_cast<PulseCapture*>(self)->Read(); },
            this);
        pa_buffer_attr buffer{};
        buffer.maxlength = buffer.tlength = buffer.prebuf = buffer.minreq =
            static_cast<std::uint32_t>(-1);
        buffer.fragsize = static_cast<std::uint32_t>(pa_usec_to_bytes(kFragment, &format));
        if (pa_stream_connect_record(stream_, device.empty() ? nullptr : device.c_str(), &buffer,
                                     PA_STREAM_ADJUST_LATENCY) < 0)
            return false;
    }
    const bool decided = connection_->Await(deadline, [&] {
        const auto state = pa_stream_get_state(stream_);
        return state == PA_STREAM_READY || !PA_STREAM_IS_GOOD(state);
    });
    {
        const PulseLock lock(*connection_);
        if (!decided || pa_stream_get_state(stream_) != PA_STREAM_READY) return false;
    }
    ResetVolume(deadline);
    return true;
}

// The volume is the device's alone, whatever the server remembers of this program. With volumes of
// which the loudest is the device's, setting ours would set the device's.
void PulseCapture::ResetVolume(Deadline deadline) {
    bool separate = false;
    connection_->Complete(deadline, [&] {
        return pa_context_get_source_info_by_index(
            connection_->Context(), pa_stream_get_device_index(stream_),
            [](pa_context*, const pa_source_info* info, int end, void* found) {
                if (end == 0 && info)
                    *static_cast<bool*>(found) = (info->flags & PA_SOURCE_FLAT_VOLUME) == 0;
            },
            &separate);
    });
    if (!separate) return;
    const PulseLock lock(*connection_);
    pa_context* context = connection_->Context();
    const std::uint32_t index = pa_stream_get_index(stream_);
    pa_cvolume full;
    pa_cvolume_set(&full, static_cast<unsigned>(format_.Channels), PA_VOLUME_NORM);
    for (pa_operation* change :
         {pa_context_set_source_output_volume(context, index, &full, nullptr, nullptr),
          pa_context_set_source_output_mute(context, index, 0, nullptr, nullptr)})
        if (change) pa_operation_unref(change);
}

void PulseCapture::Read() {
    const void* data = nullptr;
    std::size_t bytes = 0;
    while (pa_stream_peek(stream_, &data, &bytes) == 0 && bytes > 0) {
        if (data) {
            sink_.Put({static_cast<const std::int16_t*>(data), bytes / 2});
        } else {
            // A hole: the server has lost so much.
            silence_.assign(bytes / 2, 0);
            sink_.Put(silence_);
        }
        pa_stream_drop(stream_);
    }
}

}  // namespace mavrin2::devices
