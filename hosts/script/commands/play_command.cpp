#include <charconv>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/sound_devices.h"
#include "hosts/script/commands/times.h"
#include "hosts/script/commands/transport_run.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 play FILE [OPTION...]

Plays sound file FILE, the track of a CD or -, standard input, to its end or until Ctrl-C. On a terminal
the level is shown. Without a sound server it plays in real time, and nothing is heard.

  --start TIME      where to start; the beginning if not given
  --end TIME        where to end; the end if not given
  --loop            again and again
  --speed PERCENT   10 to 1000: 200 is twice as fast and an octave higher
  --device DEVICE   number or name of a device (`mavrin2 devices` lists them)

TIME is 1.5 (seconds), 1:30.25 (minutes and seconds) or 66150f (sample frames).
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kSpeed = "--speed";
constexpr std::string_view kOptions[] = {kStart, kEnd, kSpeed, kDevice};
constexpr std::string_view kLoop = "--loop";
constexpr std::string_view kFlags[] = {kLoop};

// The duration in percent.
double DurationOf(const CommandLine& line) {
    const auto text = line.Value(kSpeed);
    if (!text) return 100;
    double percent = 0;
    const char* const end = text->data() + text->size();
    const auto parsed = std::from_chars(text->data(), end, percent);
    if (parsed.ec != std::errc() || parsed.ptr != end || !(percent >= 10 && percent <= 1000))
        throw UsageError("invalid value '" + *text + "' for --speed; try 150 (10 to 1000)");
    return 100 * 100 / percent;
}

int Run(const CommandLine& line) {
    constexpr std::int32_t kOnce = 1;
    constexpr std::int32_t kLooped = 3;
    if (line.Operands().size() != 1) throw UsageError("play needs one file");
    const TimeRange part(line);
    const double duration = DurationOf(line);
    Editor editor;
    SoundDevices(editor.Control(), "DeviceOutput").Choose(line);
    const InputFile file(line.Operands()[0]);
    editor.Open(file);
    std::int64_t end = editor.Frames();
    if (part.IsGiven()) {
        const auto range = part.In(editor, file.Name());
        editor.Select(range.Start, range.End);
        end = range.End;
    }
    const binding::LateBound control{automation::ComPtr<IDispatch>(&editor.Control())};
    // All of it, from the first frame to the last one.
    control.Part("Transform").Put("SmoothEnabled", false);
    control.Put("PlaySpeedEnabled", duration != 100);
    control.Put("PlaySpeedPercent", duration);
    TransportRun run(editor.Control(), "Playing");
    control.Call("Play", line.Has(kLoop) ? kLooped : kOnce);
    const bool asked = run.Wait([](std::int32_t) { return false; });
    if (!run.Error().empty()) throw Failure(file.Name(), run.Error());
    // At another speed the last frames may be missing.
    const std::int64_t nearEnd = end - editor.Rate() / 10;
    if (!asked && (line.Has(kLoop) || run.Reached() < nearEnd))
        throw Failure(file.Name(), "the device has stopped before the end");
    return kSuccess;
}

}  // namespace

const Command kPlayCommand{"play", kHelp, kOptions, false, &Run, kFlags};

}  // namespace mavrin2::script
