#include "companions/devices/backends/pulse/pulse_connection.h"

#include <new>

namespace mavrin2::devices {

PulseConnection::PulseConnection(const std::string& application)
    : loop_(pa_threaded_mainloop_new()) {
    if (!loop_) throw std::bad_alloc();
    pa_threaded_mainloop_set_name(loop_, "mavrin2-sound");
    context_ = pa_context_new(pa_threaded_mainloop_get_api(loop_), application.c_str());
    if (!context_) {
        pa_threaded_mainloop_free(loop_);
        throw std::bad_alloc();
    }
    pa_context_set_state_callback(
        context_, [](pa_context*, void* self) { static_cast<PulseConnection*>(self)->Notify(); },
        this);
    // The thread has not been started: nothing needs the lock yet.
    pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    pa_threaded_mainloop_start(loop_);
}

PulseConnection::~PulseConnection() {
    {
        const PulseLock lock(*this);
        pa_context_set_state_callback(context_, nullptr, nullptr);
        pa_context_disconnect(context_);
        pa_context_unref(context_);
    }
    pa_threaded_mainloop_stop(loop_);
    pa_threaded_mainloop_free(loop_);
}

Connection PulseConnection::Open(Deadline deadline) {
    pa_context_state_t state = PA_CONTEXT_UNCONNECTED;
    const bool decided = Await(deadline, [&] {
        state = pa_context_get_state(context_);
        return state == PA_CONTEXT_READY || !PA_CONTEXT_IS_GOOD(state);
    });
    if (!decided) return Connection::Unresponsive;
    return state == PA_CONTEXT_READY ? Connection::Ready : Connection::Absent;
}

bool PulseConnection::IsReady() {
    const PulseLock lock(*this);
    return pa_context_get_state(context_) == PA_CONTEXT_READY;
}

void PulseConnection::Notify() {
    {
        const std::lock_guard lock(mutex_);
        ++changes_;
    }
    changed_.notify_all();
}

bool PulseConnection::Await(Deadline deadline, const std::function<bool()>& condition) {
    for (;;) {
        std::uint64_t seen = 0;
        {
            const std::lock_guard lock(mutex_);
            seen = changes_;
        }
        {
            const PulseLock lock(*this);
            if (condition()) return true;
        }
        std::unique_lock lock(mutex_);
        if (!changed_.wait_until(lock, deadline, [&] { return changes_ != seen; })) return false;
    }
}

bool PulseConnection::Complete(Deadline deadline, const std::function<pa_operation*()>& start) {
    pa_operation* operation = nullptr;
    {
        const PulseLock lock(*this);
        operation = start();
        if (!operation) return false;
        pa_operation_set_state_callback(
            operation,
            [](pa_operation*, void* self) { static_cast<PulseConnection*>(self)->Notify(); }, this);
    }
    pa_operation_state_t state = PA_OPERATION_RUNNING;
    Await(deadline, [&] {
        state = pa_operation_get_state(operation);
        return state != PA_OPERATION_RUNNING;
    });
    const PulseLock lock(*this);
    pa_operation_set_state_callback(operation, nullptr, nullptr);
    if (pa_operation_get_state(operation) == PA_OPERATION_RUNNING) pa_operation_cancel(operation);
    pa_operation_unref(operation);
    return state == PA_OPERATION_DONE;
}

}  // namespace mavrin2::devices
