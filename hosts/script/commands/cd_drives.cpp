#include "hosts/script/commands/cd_drives.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <filesystem>

#include "automation/text.h"
#include "hosts/binding/late_binding.h"
#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

constexpr const char* kGrabberProgId = "KovPindle.PindleCD2";
constexpr const char* kExtension = ".cda";
constexpr std::int32_t kMostTracks = 99;

std::string PathOf(const std::string& drive, std::int32_t number) {
    char name[32];
    std::snprintf(name, sizeof name, "Track%02d", static_cast<int>(number));
    return (std::filesystem::path(drive) / name).string() + kExtension;
}

// Whether a call was possible. Discs that are not there, and tracks that discs do not have, are
// failures of calls.
template <class Act>
bool Succeeds(Act act) {
    try {
        act();
        return true;
    } catch (const binding::CallError&) {
        return false;
    }
}

std::vector<CdTrack> TracksOf(const binding::LateBound& grabber, const std::string& drive) {
    std::vector<CdTrack> tracks;
    if (!Succeeds([&] { grabber.Call("OpenDrive"); })) return tracks;
    for (std::int32_t number = 1; number <= kMostTracks; ++number) {
        if (!Succeeds([&] { grabber.Put("TrackIndex", number - 1); })) continue;
        const std::int64_t values =
            std::int64_t{grabber.Number("TrackSizeFactor1")} * grabber.Number("TrackSizeFactor2");
        tracks.push_back(
            {PathOf(drive, number), number, values / 2, grabber.Call("PrepareTrack").lVal == 0});
    }
    return tracks;
}

bool IsSameDrive(const std::string& a, const std::string& b) {
    std::error_code error;
    return a == b || (std::filesystem::equivalent(a, b, error) && !error);
}

}  // namespace

std::vector<CdDrive> ListCdDrives(const std::function<bool(const std::string& name)>& wanted) {
    const binding::LateBound grabber(binding::CreateObject(kGrabberProgId));
    grabber.Call("GrabberInit");
    std::vector<CdDrive> drives;
    const std::int32_t count = grabber.Number("DriveCount");
    for (std::int32_t number = 1; number <= count; ++number) {
        grabber.Put("DriveNum", number);
        const std::string name = grabber.Text("DriveName");
        drives.push_back({name, wanted(name) ? TracksOf(grabber, name) : std::vector<CdTrack>()});
    }
    grabber.Call("GrabberClose");
    return drives;
}

bool IsCdTrack(const std::string& file) {
    return automation::AsciiLower(std::filesystem::path(file).extension().string()) == kExtension;
}

CdTrack FindCdTrack(const std::string& file) {
    const std::filesystem::path path(file);
    const std::string drive = path.parent_path().string();
    std::int32_t number = 0;
    const std::string name = path.stem().string();
    constexpr std::size_t kBeforeNumber = 5;
    if (name.size() > kBeforeNumber)
        std::from_chars(name.data() + kBeforeNumber, name.data() + name.size(), number);

    const auto isMeant = [&](const std::string& name) { return IsSameDrive(name, drive); };
    const std::vector<CdDrive> drives = ListCdDrives(isMeant);
    const auto found = std::ranges::find_if(drives, isMeant, &CdDrive::Name);
    if (found == drives.end())
        throw Failure(file, "'" + drive + "' is not a CD drive; `mavrin2 cd` lists them");
    const auto track = std::ranges::find(found->Tracks, number, &CdTrack::Number);
    if (track == found->Tracks.end())
        throw Failure(file, "there is no such track; `mavrin2 cd` lists them");
    if (!track->HasSound) throw Failure(file, "the track has no sound");
    return *track;
}

}  // namespace mavrin2::script
