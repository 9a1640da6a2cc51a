#include <string>

#include "bench/editor.h"
#include "bench/figures.h"
#include "bench/measure.h"

namespace mavrin2::bench {
namespace {

constexpr int kRounds = 5;
constexpr double kLimit = 1.1;

}  // namespace

void PrintOpenFigures(const Folder& data) {
    const Folder output = data / "decoded.tmp.wav";
    const std::string out = output.string();
    const auto program = [&](std::vector<std::string> command) {
        return ProgramWriting(output, std::move(command));
    };
    struct Case {
        std::string File;
        std::vector<std::vector<std::string>> Decoders;
    };
    const auto in = [&](const char* name) { return (data / name).string(); };
    const auto ffmpeg = [&](const char* name) {
        return std::vector<std::string>{"ffmpeg", "-v", "error", "-y", "-i", in(name), out};
    };
    const Case cases[] = {
        {"m60.wav", {ffmpeg("m60.wav"), {"sndfile-convert", in("m60.wav"), out}}},
        {"m60.flac",
         {ffmpeg("m60.flac"),
          {"flac", "-s", "-d", "-f", "-o", out, in("m60.flac")},
          {"sndfile-convert", in("m60.flac"), out}}},
        {"m60.mp3", {ffmpeg("m60.mp3"), {"mpg123", "-q", "-w", out, in("m60.mp3")}}},
        {"m60.ogg", {ffmpeg("m60.ogg"), {"oggdec", "-Q", "-o", out, in("m60.ogg")}}},
    };
    for (const Case& one : cases) {
        Editor editor;
        Action ours{"Mavrin2", [&] { editor.Open(data / one.File); }, [] {},
                    [&] {
                        // What is left of the last document goes with its control only.
                        const auto file = editor.WorkFile();
                        editor.Control().Close();
                        std::filesystem::remove(file);
                    }};
        std::vector<Action> decoders;
        for (const auto& command : one.Decoders)
            decoders.push_back(program(command));
        PrintRatio("Open " + one.File, ours, decoders, kLimit, kRounds);
    }
}

}  // namespace mavrin2::bench
