#include <cstdio>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/file_report.h"
#include "hosts/script/commands/input_file.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 info FILE... [--exact] [--json]

Shows of each sound file its format, length (hours:minutes:seconds and sample frames), sample rate in
hertz, number of channels, average bit rate, tags and number of markers, and what a document made of it
would lack ("As document"): the editor has 16-bit samples of one or two channels, at most 2 GiB of them.
FILE may be -, standard input.

  --exact  decode the sound: the length is counted, and damage is found
  --json   an array with an object for each file; markers with position and length in frames

Without --exact the length is what the file states or, if it does not, an estimate.
Exit codes: 0 success, 1 a file could not be read, 2 usage error.
)";

constexpr std::string_view kExact = "--exact";
constexpr std::string_view kJson = "--json";
constexpr std::string_view kFlags[] = {kExact, kJson};

int Run(const CommandLine& line) {
    if (line.Operands().empty()) throw UsageError("info needs at least one file");
    CheckStandardInput(line.Operands());
    const bool json = line.Has(kJson);
    int code = kSuccess;
    const char* before = json ? "[\n" : "";
    for (const std::string& file : line.Operands()) {
        try {
            const FileReport report = ReportOf(file, line.Has(kExact));
            std::printf("%s%s", before, (json ? AsJson(report) : AsText(report)).c_str());
            before = json ? ",\n" : "\n";
        } catch (const Failure& failure) {
            // In order, also where both streams go to one file.
            std::fflush(stdout);
            std::fprintf(stderr, "mavrin2: %s\n", failure.what());
            code = kFailure;
        }
    }
    if (json) std::printf("%s]\n", *before == '[' ? "[" : "\n");
    return code;
}

}  // namespace

const Command kInfoCommand{"info", kHelp, {}, false, &Run, kFlags};

}  // namespace mavrin2::script
