#include <cstdio>
#include <fstream>
#include <iostream>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/input_file.h"
#include "hosts/script/commands/marker_list.h"
#include "hosts/script/commands/stored_info.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 markers FILE
       mavrin2 markers FILE --from LIST OUT

Lists the markers of a sound file, or writes a copy OUT of it with those of a list. OUT may be FILE itself.
The sound is neither decoded nor changed.

A list has a line for each marker: start, end (seconds) and label, with tabs between them. Start and end
of a cue are the same. LIST may be -, standard input. A marker that is in FILE already keeps its note and
its text, which lists do not have.

Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr std::string_view kFrom = "--from";
constexpr std::string_view kOptions[] = {kFrom};

std::vector<FileMarker> Read(const std::string& list, std::int32_t rate,
                             std::span<const FileMarker> present) {
    if (list == "-") return ReadMarkerList(std::cin, "standard input", rate, present);
    CheckReadable(list);
    std::ifstream file(list);
    return ReadMarkerList(file, list, rate, present);
}

int Run(const CommandLine& line) {
    const auto list = line.Value(kFrom);
    if (line.Operands().size() != (list ? 2 : 1))
        throw UsageError(
            list ? "markers --from needs two files, FILE and OUT"
                 : "markers needs one file; --from LIST writes markers to a second one");
    const std::string& in = line.Operands().front();
    const StoredInfo info(in);
    const std::vector<FileMarker> present = info.Markers();
    if (!list) {
        if (!present.empty()) std::fputs(MarkerLines(present, SampleRateOf(in)).c_str(), stdout);
        return kSuccess;
    }
    info.PutMarkers(Read(*list, SampleRateOf(in), present));
    info.WriteTo(line.Operands().back());
    return kSuccess;
}

}  // namespace

const Command kMarkersCommand{"markers", kHelp, kOptions, false, &Run};

}  // namespace mavrin2::script
