#include "tests/hosts/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace mavrin2::tests {
namespace {

void Require(bool so, const char* what) {
    if (!so) throw std::runtime_error(what);
}

[[noreturn]] void Become(const std::vector<std::string>& arguments,
                         const Program::Settings& settings, int out, int err) {
    ::dup2(::open(settings.Input.c_str(), O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    if (!settings.Output.empty()) out = ::open(settings.Output.c_str(), O_WRONLY | O_CLOEXEC);
    ::dup2(out, STDOUT_FILENO);
    ::dup2(err, STDERR_FILENO);
    if (settings.LongestFile >= 0) {
        const auto most = static_cast<rlim_t>(settings.LongestFile);
        const rlimit limit{most, most};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    if (!settings.Folder.empty() && ::chdir(settings.Folder.c_str()) != 0) ::_exit(126);
    for (const auto& [name, value] : settings.Environment) {
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
    }
    std::vector<char*> values{const_cast<char*>("mavrin2")};
    for (const std::string& argument : arguments)
        values.push_back(const_cast<char*>(argument.c_str()));
    values.push_back(nullptr);
    ::execv(settings.Path.c_str(), values.data());
    ::_exit(127);
}

}  // namespace

Program::Program(const std::vector<std::string>& arguments, const Settings& settings) {
    int out[2];
    int err[2];
    Require(::pipe2(out, O_CLOEXEC) == 0, "no pipe");
    if (settings.Terminal)
        Require(::openpty(&err[0], &err[1], nullptr, nullptr, nullptr) == 0, "no terminal");
    else
        Require(::pipe(err) == 0, "no pipe");
    for (const int end : {err[0], err[1]})
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    id_ = ::fork();
    Require(id_ >= 0, "no process");
    if (id_ == 0) Become(arguments, settings, out[1], err[1]);
    ::close(out[1]);
    ::close(err[1]);
    outEnd_ = out[0];
    errEnd_ = err[0];
}

Program::~Program() {
    if (id_ > 0) {
        ::kill(id_, SIGKILL);
        ::waitpid(id_, nullptr, 0);
    }
    ::close(outEnd_);
    ::close(errEnd_);
}

// Reads what there is; false at the end of both streams.
bool Program::Read() {
    if (outEnd_ < 0 && errEnd_ < 0) return false;
    pollfd streams[] = {{outEnd_, POLLIN, 0}, {errEnd_, POLLIN, 0}};
    ::poll(streams, 2, -1);
    const auto take = [&](const pollfd& stream, int& end, std::string& text) {
        char buffer[4096];
        if (stream.revents == 0) return;
        const ssize_t count = ::read(end, buffer, sizeof buffer);
        if (count > 0) {
            text.append(buffer, static_cast<std::size_t>(count));
        } else {
            // A terminal ends with an error.
            ::close(end);
            end = -1;
        }
    };
    take(streams[0], outEnd_, Out);
    take(streams[1], errEnd_, Err);
    return true;
}

bool Program::Await(const std::string& stream, const std::string& text) {
    while (stream.find(text) == std::string::npos)
        if (!Read()) return false;
    return true;
}

void Program::Signal(int signal) const {
    ::kill(id_, signal);
}

int Program::Finish() {
    while (Read()) {
    }
    int status = 0;
    ::waitpid(id_, &status, 0);
    id_ = 0;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

HostEnvironment::~HostEnvironment() {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(temporary_.Path()))
        EXPECT_NE(entry.path().extension(), ".tmp") << "a work file is left: " << entry;
}

void HostEnvironment::WriteWave(const std::string& name, std::uint32_t rate, std::uint16_t channels,
                                std::uint32_t frames) const {
    std::ofstream file(Path(name), std::ios::binary);
    const auto number = [&](std::uint32_t value, int bytes) {
        for (; bytes > 0; --bytes, value >>= 8)
            file.put(static_cast<char>(value));
    };
    const std::uint32_t size = frames * channels * 2;
    file << "RIFF";
    number(36 + size, 4);
    file << "WAVEfmt ";
    number(16, 4);
    number(1, 2);
    number(channels, 2);
    number(rate, 4);
    number(rate * channels * 2, 4);
    number(channels * 2U, 2);
    number(16, 2);
    file << "data";
    number(size, 4);
    for (std::uint32_t frame = 0; frame < std::min(frames, 32768U); ++frame)
        for (int channel = 0; channel < channels; ++channel)
            number(frame, 2);
    file.close();
    std::filesystem::resize_file(Path(name), 44 + size);
}

void HostEnvironment::Write(const std::string& name, const std::string& text) const {
    std::ofstream(Path(name)) << text;
}

std::optional<std::string> HostEnvironment::Read(const std::string& name) const {
    std::ifstream file(Path(name));
    if (!file) return std::nullopt;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> HostEnvironment::Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path()))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

}  // namespace mavrin2::tests
