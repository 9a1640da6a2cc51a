#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace mavrin2::script {

struct CdTrack {
    std::string Path;         // as the editor opens it
    std::int32_t Number = 0;  // from 1
    std::int64_t Frames = 0;  // sample frames at 44100 Hz
    bool HasSound = false;    // otherwise it is data
};

struct CdDrive {
    std::string Name;
    std::vector<CdTrack> Tracks;  // none without a disc
};

// The drives of the system, a drive that is mounted under both names, and the disc images in
// MAVRIN2_CD_IMAGES. Discs are read in the drives that are wanted. Throws CallError.
std::vector<CdDrive> ListCdDrives(const std::function<bool(const std::string& name)>& wanted);

// Whether the name is that of a CD's track: DRIVE/Track05.cda.
bool IsCdTrack(const std::string& file);

// The track of that name. Throws Failure if it is not there or has no sound.
CdTrack FindCdTrack(const std::string& file);

}  // namespace mavrin2::script
