#include <cstdio>
#include <exception>
#include <string>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/conversion.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/format_choice.h"
#include "hosts/script/commands/losses.h"
#include "hosts/script/commands/sound_edits.h"
#include "hosts/script/commands/sound_output.h"
#include "platform/interrupt.h"
#include "platform/worker_processes.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 convert IN OUT [OPTION...]
       mavrin2 convert IN... -o FOLDER [--to EXTENSION] [OPTION...]

Converts sound files, or tracks of CDs (`mavrin2 cd` lists them), to sound files. The extension of OUT
chooses the format: .wav, .aiff, .flac, .ogg (Vorbis), .opus, .mp3, .vox, .wma, .mp2, .au, .g721, .g723
or .g726. An existing file OUT is replaced when the new one is complete. IN may be -, standard input,
and OUT -, standard output, whose format --format names. The editor works on 16-bit samples of one or
two channels, at most 2 GiB of them: 3 h 22 min 54 s of 44.1 kHz stereo. What of IN gets lost is said on
standard error. Tags and markers of IN go to OUT.

Where and what to write:
  -o FOLDER            each IN is written there under its name, several at a time
  --to EXTENSION       with this extension: mp3; with that of IN if not given
  --no-clobber         fail where OUT exists
  --quiet              no line for each file, only errors and losses
  --strict             fail, and write nothing, where anything of IN would be lost
  --bare               without tags and markers

The sound, in this order; a range is FROM-TO, and all times are those of IN:
  --silence RANGE      make a range silent; may be given several times
  --delete RANGE       leave a range out; may be given several times
  --start TIME         where to start; the beginning if not given
  --end TIME           where to end; the end if not given
  --gain DECIBELS      change the level: -6; what is too loud then is limited
  --normalize PERCENT  bring the peak of each channel to this level: 95, or 89 for -1 dB
  --fade IN[,OUT]      fade in and out for these times: 0.5,3
  --rate HERTZ         sample rate, 1000 to 192000; as in IN if not given
  --channels COUNT     1 or 2; as in IN if not given
`mavrin2 process` has more to do with a sound: filters, pauses removed, another tempo.

The format:
  --bitrate KBIT       bit rate in kbit/s, for .mp3, .mp2 and .ogg
  --quality VALUE      of a variable bit rate: 0 (best) to 9 for .mp3, 0 to 10 (best) for .ogg
  --format FORMAT      format of OUT, with its values: OggVorbis=44100,2,160; for standard output an
                       extension too: flac
  --lame OPTIONS       MP3 with options as the program lame has them: "--vbr-new -v 2"

TIME is 90 or 1.5 (seconds), 1:30.25 (minutes), 1:02:03 (hours) or 66150f (sample frames of IN).
With FORMAT, OUT may have an unknown extension or none, and its rate and channels are those of FORMAT.
Values that are left out have their defaults.
Exit codes: 0 success, 1 failure (of any file), 2 usage error.

Formats:
)";

constexpr std::string_view kOptions[] = {kFolder,   kTo,      kStart, kEnd,       kRate,
                                         kChannels, kFormat,  kLame,  kBitrate,   kQuality,
                                         kDelete,   kSilence, kGain,  kNormalize, kFade};
constexpr std::string_view kBare = "--bare";
constexpr std::string_view kNoClobber = "--no-clobber";
constexpr std::string_view kQuiet = "--quiet";
constexpr std::string_view kFlags[] = {kBare, kStrict, kNoClobber, kQuiet};

void ListFormats() {
    const Editor editor;
    for (const Operations::Line& one : editor.OutputFormats().List())
        std::printf("  %s\n      %s\n", one.Usage.c_str(), one.Help.c_str());
}

// Throws Failure, UsageError or Interruption.
void Convert(const CommandLine& line, const Conversion& conversion, bool progress) {
    const SoundEdits edits(line);
    const SampleFormat format(line);
    if (line.Has(kNoClobber) && conversion.OutputExists())
        throw Failure(conversion.Out, "exists already");
    // First, so that a bad output name is reported before the input is read.
    const OutputTarget target(conversion.Out, line, true);
    SoundOutput output(target, {&conversion.In, 1});
    Editor editor(progress);
    FormatChoice choice(line, editor, target);
    if (line.Has(kBare)) editor.LeaveOutExtraInfo();
    Losses losses(line);
    const InputFile in(conversion.In);
    losses.Open(editor, in);
    bool selection = edits.ApplyTo(editor, in.Name(), losses);
    if (format.Changes(editor)) {
        // Converting drops the selection, and costs more than to leave the rest out first.
        if (selection) editor.KeepSelection();
        selection = false;
        format.ApplyTo(editor);
        losses.SayLimited(editor, in.Name(), kByRateChange);
    }
    if (format.IsGiven()) output.On(SoundOutput::Mismatch::Refuse);
    choice.ApplyTo(editor, output);
    output.Write(editor, selection, losses);
}

int ConvertOneOfSeveral(const CommandLine& line, const Conversion& conversion) {
    try {
        Convert(line, conversion, false);
        if (!line.Has(kQuiet))
            std::printf("%s -> %s\n", Printable(conversion.In).c_str(),
                        Printable(conversion.Out).c_str());
        return kSuccess;
    } catch (const Interruption&) {
        return kFailure;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mavrin2: %s\n", error.what());
        return kFailure;
    }
}

int ConvertSeveral(const CommandLine& line, const std::vector<Conversion>& conversions) {
    // A command line that is wrong is so once, not for each file.
    (void)SoundEdits(line);
    (void)SampleFormat(line);
    std::size_t done = 0;
    platform::RunInProcesses(
        conversions.size(),
        [&](std::size_t number) { return ConvertOneOfSeveral(line, conversions[number]); },
        [&](std::size_t, bool success) { done += success ? 1 : 0; });
    if (platform::Interrupted()) throw Interruption();
    if (done < conversions.size()) {
        std::fflush(stdout);
        std::fprintf(stderr, "mavrin2: %zu of %zu files were converted\n", done,
                     conversions.size());
        return kFailure;
    }
    if (!line.Has(kQuiet)) std::printf("%zu files were converted\n", done);
    return kSuccess;
}

int Run(const CommandLine& line) {
    const std::vector<Conversion> conversions = ConversionsOf(line);
    if (conversions.size() > 1) return ConvertSeveral(line, conversions);
    Convert(line, conversions.front(), true);
    return kSuccess;
}

}  // namespace

const Command kConvertCommand{"convert", kHelp, kOptions, false, &Run, kFlags, &ListFormats};

}  // namespace mavrin2::script
