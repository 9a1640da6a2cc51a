#include <algorithm>
#include <cstdio>
#include <vector>

#include "hosts/script/commands/cd_drives.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/times.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 cd [DRIVE...]

Lists the tracks of the CDs in all drives, or in some, with their length (hours:minutes:seconds). What is
listed for a track is its name for other commands: mavrin2 convert /dev/sr0/Track05.cda song.flac

MAVRIN2_CD_IMAGES names disc images that are drives, too: paths with colons between them.
Exit codes: 0 success, 1 failure, 2 usage error.
)";

void Print(const CdDrive& drive) {
    constexpr int kRate = 44100;
    if (drive.Tracks.empty()) std::printf("%s  no disc that can be read\n", drive.Name.c_str());
    for (const CdTrack& track : drive.Tracks)
        std::printf("%s  %s\n", track.Path.c_str(),
                    track.HasSound ? DurationText(track.Frames, kRate).c_str() : "data");
}

int Run(const CommandLine& line) {
    const auto& asked = line.Operands();
    const auto isAsked = [&](const std::string& name) {
        return asked.empty() || std::ranges::find(asked, name) != asked.end();
    };
    const std::vector<CdDrive> drives = ListCdDrives(isAsked);
    for (const std::string& name : asked)
        if (std::ranges::find(drives, name, &CdDrive::Name) == drives.end())
            throw Failure(name, "is not a CD drive; `mavrin2 cd` lists them");
    if (drives.empty())
        throw Failure("there is no CD drive; MAVRIN2_CD_IMAGES may name disc images");
    for (const CdDrive& drive : drives)
        if (isAsked(drive.Name)) Print(drive);
    return kSuccess;
}

}  // namespace

const Command kCdCommand{"cd", kHelp, {}, false, &Run};

}  // namespace mavrin2::script
