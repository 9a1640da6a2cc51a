#pragma once

#include <cstdint>
#include <filesystem>

#include "control/signal/quantity.h"
#include "control/view/view_data.h"
#include "platform/files.h"

namespace mavrin2::view {

using signal::Bytes;

// A visible range of a work file and the columns it is shown in.
struct ScanRange {
    std::filesystem::path WorkFile;
    Bytes StartView;
    Bytes EndView;
    std::int32_t Channels = 1;
    std::int32_t Frequency = 8000;
    std::int32_t WaveWidth = 0;
};

// Condenses the range into peak columns. Wide ranges are sampled: about 500 frames of each column
// are looked at. False when the file could not be opened or there is no memory.
bool ScanWorkFile(platform::FileSystem& files, const ScanRange& range, ViewData& data);

}  // namespace mavrin2::view
