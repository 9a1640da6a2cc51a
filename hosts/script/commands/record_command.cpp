#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/sound_devices.h"
#include "hosts/script/commands/sound_output.h"
#include "hosts/script/commands/times.h"
#include "hosts/script/commands/transport_run.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 record OUT [OPTION...]

Records into sound file OUT until Ctrl-C, or for some time. The extension of OUT chooses the format,
as for `mavrin2 convert`. OUT may be -, standard output, which is written when the recording has ended.
On a terminal the level is shown. Without a sound server silence is recorded.

  --length TIME     how long; until Ctrl-C if not given
  --rate HERTZ      sample rate, 1000 to 192000; 44100 if not given
  --channels COUNT  1 or 2; 2 if not given
  --format FORMAT   the format of standard output, as an extension: flac
  --device DEVICE   number or name of a device (`mavrin2 devices` lists them)

TIME is 1.5 (seconds), 1:30.25 (minutes and seconds) or 66150f (sample frames).
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kLength = "--length";
constexpr std::string_view kOptions[] = {kLength, kRate, kChannels, kDevice, kFormat};

std::optional<TimePoint> LengthOf(const CommandLine& line) {
    const auto text = line.Value(kLength);
    if (!text) return std::nullopt;
    return TimeOf(kLength, *text);
}

int Run(const CommandLine& line) {
    constexpr std::int32_t kReplacing = 1;
    if (line.Operands().size() != 1) throw UsageError("record needs one file");
    const OutputTarget target(line.Operands()[0], line);
    const std::string out = target.Name();
    const auto length = LengthOf(line);
    const SampleFormat format(line);
    SoundOutput output(target, {});
    Editor editor;
    SoundDevices(editor.Control(), "DeviceInput").Choose(line);
    editor.New(format.RateOr(44100), format.ChannelsOr(2));
    const std::int64_t frames = length ? length->Frames(editor.Rate()) : INT32_MAX;
    if (frames < 1) throw UsageError("a recording of no length");
    const binding::LateBound control{automation::ComPtr<IDispatch>(&editor.Control())};
    TransportRun run(editor.Control(), "Recording");
    control.Call("Record", kReplacing);
    if (!run.Error().empty()) throw Failure(out, run.Error());
    run.Wait([&](std::int32_t recorded) { return recorded >= frames; });
    if (editor.Frames() == 0) throw Failure(out, "nothing was recorded");
    // The last block is longer than what was asked for.
    const bool part = editor.Frames() > frames;
    const std::string failure = run.Error();
    if (part) editor.Select(0, frames);
    Losses losses(line);
    output.Write(editor, part, losses);
    if (!failure.empty()) throw Failure(out, "recorded in part only: " + failure);
    return kSuccess;
}

}  // namespace

const Command kRecordCommand{"record", kHelp, kOptions, false, &Run};

}  // namespace mavrin2::script
