#include <algorithm>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>

#include "bench/figures.h"
#include "bench/measure.h"
#include "bench/shown_editor.h"

namespace mavrin2::bench {
namespace {

constexpr int kRounds = 7;
constexpr int kWidth = 1920;
constexpr int kHeight = 400;

double MillisecondsOf(const std::function<void()>& run, int times) {
    std::vector<double> taken;
    taken.reserve(static_cast<std::size_t>(times));
    for (int i = 0; i < times; ++i)
        taken.push_back(SecondsOf(run) * 1000);
    return Median(taken);
}

// Reading a stretch of a file in pieces, the least that any program that shows it must do.
class Reading {
public:
    Reading(const std::filesystem::path& file, std::size_t piece)
        : file_(file, std::ios::binary), memory_(piece) {
        file_.rdbuf()->pubsetbuf(nullptr, 0);
    }

    void Run(std::int64_t bytes) {
        file_.clear();
        file_.seekg(0);
        for (std::int64_t done = 0; done < bytes && file_; done += file_.gcount())
            file_.read(memory_.data(),
                       static_cast<std::streamsize>(std::min<std::int64_t>(
                           bytes - done, static_cast<std::int64_t>(memory_.size()))));
    }

private:
    std::ifstream file_;
    std::vector<char> memory_;
};

void PrintDrawing(const Folder& data) {
    ShownEditor editor(kWidth, kHeight);
    editor.Open(data / "m60.wav");
    editor.Control().Zoom(0, 600 * 44100);
    const double redraw = MillisecondsOf([&] { editor.Redraw(); }, 100);
    PrintValue("Redraw of 1920 × 400, 10 min of stereo", redraw, "ms", 1.5);

    std::vector<std::uint32_t> copy(editor.Pixels().size());
    const Action ours{"Mavrin2", [&] {
                          for (int i = 0; i < 100; ++i)
                              editor.Paint();
                      }};
    PrintRatio("Repaint, 100 times", ours,
               {{"copy",
                 [&] {
                     for (int i = 0; i < 100; ++i)
                         std::memcpy(copy.data(), editor.Pixels().data(), copy.size() * 4);
                 }}},
               3, kRounds);

    // Up to 3,000,000 values are read from the work file.
    editor.Control().Zoom(0, 1'500'000);
    Reading reading(editor.WorkFile(), 6'000'000);
    const double refresh = MillisecondsOf([&] { editor.Control().Refresh(); }, 50);
    const double read = MillisecondsOf([&] { reading.Run(6'000'000); }, 50);
    PrintValue("RecomputeView of 3,000,000 values, less the redraw", refresh - redraw, "ms", 0);
    PrintValue("Reading them into memory", read, "ms", 0);
    PrintValue("Ratio of the two", (refresh - redraw) / read, "×", 1.5);

    std::vector<double> steps;
    for (LONG frames = 3600 * 44100; frames > 100; frames /= 3)
        steps.push_back(SecondsOf([&] { editor.Control().Zoom(0, frames); }) * 1000);
    for (int i = 0; i < 20; ++i)
        steps.push_back(SecondsOf([&] { editor.Control().ZoomOut(); }) * 1000);
    PrintValue("Slowest zoom step of 60 min", *std::max_element(steps.begin(), steps.end()), "ms",
               16);

    editor.Control().ZoomFull();
    editor.Control().put_TypeView(interfaces::TypeViewConstants::SPECTRAL);
    PrintValue("Spectral picture of 1920 columns, stereo",
               MillisecondsOf([&] { editor.Control().Refresh(); }, 20), "ms", 10);
}

void PrintOverview(const Folder& data) {
    ShownEditor editor(kWidth, kHeight);
    editor.Open(data / "m60.wav");
    Reading reading(editor.WorkFile(), std::size_t{256} * 1024);
    const Action build{"Mavrin2", [&] { editor.Control().EndOperations(); }};
    PrintRatio("BuildOverviewSummary of 60 min", build, {{"read", [&] { reading.Run(INT64_MAX); }}},
               2, kRounds);

    editor.SelectSecondInTheMiddle();
    editor.DeleteSelect();
    const Action undo{"Mavrin2", [&] { editor.Control().Undo(); }, [] {},
                      [&] { editor.Control().Redo(); }};
    PrintRatio("Undo with a picture", undo, {{"building the summary", build.Run}}, 1.2, kRounds);
}

void PrintEdit(const Folder& data) {
    std::unique_ptr<ShownEditor> editor;
    const Folder copy = data / "copy.tmp";
    const Action ours{"Mavrin2", [&] { editor->DeleteSelect(); },
                      [&] {
                          editor = std::make_unique<ShownEditor>(kWidth, kHeight);
                          editor->Open(data / "m60.wav");
                          editor->SelectSecondInTheMiddle();
                      },
                      [&] { editor.reset(); }};
    PrintRatio("DeleteSelect with a picture", ours,
               {ProgramWriting(copy, {"cp", (data / "m60.wav").string(), copy.string()})}, 1.9,
               kRounds);
}

using Command = std::vector<std::string>;

// Each program several times in a row, not in turn: a virtual machine takes back what ffmpeg frees,
// and the next benchmark would pay for getting it again.
double SecondsOfProgram(const Command& command) {
    RunProgram(command);
    return MillisecondsOf([&] { RunProgram(command); }, 5) / 1000;
}

Command FfmpegWaveform(const std::string& sound, const Folder& png) {
    return {"ffmpeg",    "-v", "error",     "-y", "-i", sound, "-lavfi", "showwavespic=s=1200x300",
            "-frames:v", "1",  png.string()};
}

void PrintPicture(const Folder& data, const Folder& programs) {
    const Folder png = data / "picture.png";
    const std::string sound = (data / "m60.wav").string();
    const double ours =
        SecondsOfProgram({(programs / "mavrin2").string(), "picture", sound, png.string()});
    const double theirs = SecondsOfProgram(FfmpegWaveform(sound, png));
    std::filesystem::remove(png);
    PrintValue("From a WAV of 60 min to its PNG", ours, "s", 0);
    PrintValue("The same by ffmpeg", theirs, "s", 0);
    PrintValue("Ratio of the two", ours / theirs, "×", 0.25);
}

// Opening writes a copy of the sound, for which a disk that is also busy makes it wait.
double ProcessorSecondsOfProgram(const Command& command) {
    RunProgram(command);
    std::vector<double> times(5);
    for (double& time : times)
        time = SecondsOf([&] { RunProgram(command); }, Clock::Processor);
    return Median(times);
}

void PrintShortPictures(const Folder& data, const Folder& programs) {
    const Folder png = data / "picture.png";
    const std::string sound = (data / "m10.wav").string();
    const std::string mavrin2 = (programs / "mavrin2").string();
    const double wave = ProcessorSecondsOfProgram({mavrin2, "picture", sound, png.string()});
    const double spectrum =
        ProcessorSecondsOfProgram({mavrin2, "picture", sound, png.string(), "--view", "spectral"});
    const double ffmpeg = ProcessorSecondsOfProgram(FfmpegWaveform(sound, png));
    const double sox = ProcessorSecondsOfProgram(
        {"sox", sound, "-n", "spectrogram", "-x", "1200", "-Y", "300", "-o", png.string()});
    std::filesystem::remove(png);
    PrintValue("Waveform of a WAV of 10 min as a PNG, processor time", wave, "s", 0);
    PrintValue("Beside ffmpeg's showwavespic", wave / ffmpeg, "×", 0.3);
    PrintValue("Its spectrum as a PNG, processor time", spectrum, "s", 0);
    PrintValue("Beside sox's spectrogram", spectrum / sox, "×", 0.5);
}

}  // namespace

void PrintViewFigures(const Folder& data, const Folder& programs) {
    PrintDrawing(data);
    PrintOverview(data);
    PrintEdit(data);
    PrintPicture(data, programs);
    PrintShortPictures(data, programs);
}

}  // namespace mavrin2::bench
