#include "control/processing/transport.h"

namespace mavrin2::processing {

void Transport::Stop() {
    playback_.StopDevice();
    recording_.StopDevice();
    transforms_.Abort();
    if (playback_.Active())
        playback_.Finish();
    else if (recording_.Active())
        recording_.Finish();
    else
        status_.Stop();
}

void Transport::Halt() {
    playback_.Halt();
    if (!recording_.Active()) return;
    recording_.StopDevice();
    recording_.Halt();
}

editor::LiveSound::Samples Transport::RecentSamples(std::int32_t frames) {
    return playback_.Playing() ? playback_.RecentSamples(frames) : recording_.RecentSamples(frames);
}

void Transport::EndOfData() {
    if (playback_.Playing()) Stop();
}

void Transport::BlockReady() {
    if (recording_.StoreRecordedBlock()) return;
    status_.LastError = editor::ErrorConstants::FILEACCESS;
    Stop();
}

}  // namespace mavrin2::processing
