#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/environment_variable.h"
#include "tests/support/noise.h"
#include "tests/support/pump.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::tests {

// A program of the system with a file as its output and nothing as its input. Killed with the
// object.
class Program {
public:
    Program(const std::vector<std::string>& command, const std::filesystem::path& output);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void Send(int signal) const;
    // Its result.
    int Wait();

private:
    int id_ = 0;
};

// A sound server of the test's own, without hardware: a sink "speaker" at 44100 Hz and its monitor.
// The variables of the environment that programs find it by are set while the object lives.
class TestServer {
public:
    TestServer();

    void Send(int signal) { server_->Send(signal); }
    void Kill() { server_.reset(); }
    // Runs pactl with these arguments.
    void Control(const std::vector<std::string>& arguments);

    // Records the monitor of a sink from now on, until what it has recorded is taken.
    void StartMonitor(const std::string& sink = "speaker", int channels = 2);
    Samples Monitored();
    Samples StopMonitor();
    // Plays to the sink and waits for the end.
    void Play(const Samples& samples, int channels = 2);

private:
    ScratchFolder folder_;
    EnvironmentVariable runtime_;
    EnvironmentVariable home_;
    EnvironmentVariable address_;
    std::unique_ptr<Program> server_;
    std::unique_ptr<Program> monitor_;
};

// An environment without any server.
class NoServer {
private:
    ScratchFolder folder_;
    EnvironmentVariable runtime_{"XDG_RUNTIME_DIR", folder_.Path().string()};
    EnvironmentVariable home_{"HOME", folder_.Path().string()};
    EnvironmentVariable address_{"PULSE_SERVER", std::nullopt};
};

}  // namespace mavrin2::tests
