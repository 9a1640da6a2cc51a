#pragma once

#include <pulse/pulseaudio.h>

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

#include "companions/devices/server/sound_server.h"

namespace mavrin2::devices {

// A connection to the server with the thread that serves it. Everything of the library is called
// while that thread is held up (PulseLock), and nothing waits while it is.
class PulseConnection {
public:
    explicit PulseConnection(const std::string& application);
    PulseConnection(const PulseConnection&) = delete;
    PulseConnection& operator=(const PulseConnection&) = delete;
    // Not on the connection's own thread.
    ~PulseConnection();

    Connection Open(Deadline deadline);
    bool IsReady();

    pa_threaded_mainloop* Loop() { return loop_; }
    pa_context* Context() { return context_; }

    // Called on the connection's thread, when something has happened.
    void Notify();
    // Waits until a condition, which is evaluated under the lock, holds. False if time runs out.
    bool Await(Deadline deadline, const std::function<bool()>& condition);
    // Starts an operation under the lock and waits for its end. False if it failed or there was no
    // time; then its callback is not called any more.
    bool Complete(Deadline deadline, const std::function<pa_operation*()>& start);

private:
    pa_threaded_mainloop* loop_;
    pa_context* context_ = nullptr;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t changes_ = 0;
};

// Holds up the connection's thread. Not to be used on that thread.
class PulseLock {
public:
    explicit PulseLock(PulseConnection& connection) : loop_(connection.Loop()) {
        pa_threaded_mainloop_lock(loop_);
    }
    PulseLock(const PulseLock&) = delete;
    PulseLock& operator=(const PulseLock&) = delete;
    ~PulseLock() { pa_threaded_mainloop_unlock(loop_); }

private:
    pa_threaded_mainloop* loop_;
};

}  // namespace mavrin2::devices
