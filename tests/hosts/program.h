#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"

namespace mavrin2::tests {

// The built program as a separate process.
class Program {
public:
    struct Settings {
        std::filesystem::path Folder = {};                                   // its current one
        std::map<std::string, std::optional<std::string>> Environment = {};  // what differs
        bool Terminal = false;            // whether its standard error is one
        std::string Input = "/dev/null";  // a file for its standard input
        std::string Output = {};          // a file for its standard output
        std::int64_t LongestFile = -1;    // bytes that it can write to one file; any number if -1
        std::filesystem::path Path = MAVRIN2_PROGRAM;
    };

    explicit Program(const std::vector<std::string>& arguments) : Program(arguments, Settings()) {}
    Program(const std::vector<std::string>& arguments, const Settings& settings);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // Waits for a text on standard output or standard error; false when the program ends before.
    bool AwaitOutput(const std::string& text) { return Await(Out, text); }
    bool AwaitError(const std::string& text) { return Await(Err, text); }
    void Signal(int signal) const;
    // Waits for its end. Returns its exit code, or 128 + the signal that ended it, as a shell does.
    int Finish();

    std::string Out;
    std::string Err;

private:
    bool Await(const std::string& stream, const std::string& text);
    bool Read();

    pid_t id_ = 0;
    int outEnd_ = -1;
    int errEnd_ = -1;
};

// A folder for the files of one test and another one for temporary files.
class HostEnvironment {
public:
    ~HostEnvironment();

    Program::Settings In() const {
        return {folder_.Path(),
                {{"MAVRIN2_REGISTRY", MAVRIN2_TEST_REGISTRY},
                 {"TMPDIR", temporary_.Path().string()},
                 {"PULSE_SERVER", "unix:/no/server"}}};
    }
    std::filesystem::path Path(const std::string& name) const { return folder_.Path() / name; }
    // A WAV file of 16-bit samples, frame i holding the value i; silent from frame 32768 on.
    void WriteWave(const std::string& name, std::uint32_t rate, std::uint16_t channels,
                   std::uint32_t frames) const;
    void Write(const std::string& name, const std::string& text) const;
    // Nothing when there is no such file.
    std::optional<std::string> Read(const std::string& name) const;
    // The names of all files, sorted.
    std::vector<std::string> Files() const;

private:
    ScratchFolder folder_;
    ScratchFolder temporary_;
};

}  // namespace mavrin2::tests
