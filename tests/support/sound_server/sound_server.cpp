#include "tests/support/sound_server/sound_server.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace mavrin2::tests {
namespace {

using namespace std::chrono_literals;

Samples ReadSamples(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    Samples samples(bytes.size() / 2);
    std::copy_n(bytes.data(), samples.size() * 2, reinterpret_cast<char*>(samples.data()));
    return samples;
}

void WriteSamples(const std::filesystem::path& file, const Samples& samples) {
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(samples.data()),
               static_cast<std::streamsize>(samples.size() * 2));
}

}  // namespace

Program::Program(const std::vector<std::string>& command, const std::filesystem::path& output) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    id_ = ::fork();
    if (id_ < 0) throw std::runtime_error("fork failed");
    if (id_ > 0) return;
    // Not left behind by a test that crashes.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(::open("/dev/null", O_RDONLY), 0);
    ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 1);
    ::dup2(::open("/dev/null", O_WRONLY), 2);
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

Program::~Program() {
    if (id_ == 0) return;
    Send(SIGKILL);
    Wait();
}

void Program::Send(int signal) const {
    ::kill(id_, signal);
}

int Program::Wait() {
    int status = 0;
    ::waitpid(id_, &status, 0);
    id_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TestServer::TestServer()
    : runtime_("XDG_RUNTIME_DIR", folder_.Path().string()),
      home_("HOME", folder_.Path().string()),
      address_("PULSE_SERVER", std::nullopt) {
    std::filesystem::permissions(folder_.Path(), std::filesystem::perms::owner_all);
    std::filesystem::create_directories(folder_.Path() / ".config/pulse");
    std::ofstream(folder_.Path() / ".config/pulse/daemon.conf")
        << "default-sample-rate = 44100\nalternate-sample-rate = 44100\n";
    const auto script = folder_.Path() / "test.pa";
    std::ofstream(script) << "load-module module-native-protocol-unix\n"
                             "load-module module-null-sink sink_name=speaker rate=44100 "
                             "format=s16le channels=2 norewinds=1\n";
    server_ = std::make_unique<Program>(
        std::vector<std::string>{"pulseaudio", "-n", "-F", script.string(), "--exit-idle-time=-1",
                                 "--daemonize=no"},
        folder_.Path() / "server.log");
    for (int attempt = 0; attempt < 200; ++attempt) {
        if (Program({"pactl", "info"}, "/dev/null").Wait() == 0) return;
        std::this_thread::sleep_for(50ms);
    }
    throw std::runtime_error("the sound server does not start");
}

void TestServer::Control(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"pactl"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    if (Program(command, "/dev/null").Wait() != 0)
        throw std::runtime_error("pactl " + arguments.front() + " failed");
}

void TestServer::StartMonitor(const std::string& sink, int channels) {
    std::filesystem::remove(folder_.Path() / "monitor");
    monitor_ = std::make_unique<Program>(
        std::vector<std::string>{"parec", "-d", sink + ".monitor", "--latency-msec=20", "--raw",
                                 "--rate=44100", "--channels=" + std::to_string(channels)},
        folder_.Path() / "monitor");
    for (int attempt = 0; attempt < 400; ++attempt) {
        if (!Monitored().empty()) return;
        std::this_thread::sleep_for(10ms);
    }
    throw std::runtime_error("the monitor records nothing");
}

Samples TestServer::Monitored() {
    return ReadSamples(folder_.Path() / "monitor");
}

Samples TestServer::StopMonitor() {
    std::this_thread::sleep_for(300ms);
    monitor_->Send(SIGTERM);
    monitor_->Wait();
    return Monitored();
}

void TestServer::Play(const Samples& samples, int channels) {
    const auto file = folder_.Path() / "played";
    WriteSamples(file, samples);
    Program({"paplay", "-d", "speaker", "--raw", "--rate=44100",
             "--channels=" + std::to_string(channels), file.string()},
            "/dev/null")
        .Wait();
}

}  // namespace mavrin2::tests
