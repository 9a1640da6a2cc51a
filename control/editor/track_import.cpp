#include "control/editor/track_import.h"

#include <algorithm>
#include <charconv>

namespace mavrin2::editor {
namespace {

constexpr std::int32_t kFrequency = 44100;
constexpr std::int32_t kChannels = 2;
constexpr std::int32_t kBits = 16;

constexpr std::int32_t kSectorsPerBlock = 26;
constexpr int kMostFailures = 9;  // in succession; the next one ends the import

}  // namespace

std::int32_t TrackNumberOf(const std::filesystem::path& path) {
    constexpr std::size_t kBeforeNumber = 5;
    std::int32_t number = 0;
    const std::string name = path.stem().string();
    if (name.size() > kBeforeNumber)
        std::from_chars(name.data() + kBeforeNumber, name.data() + name.size(), number);
    return number;
}

void TrackImport::Import(const TrackPath& track) {
    grabber_.GrabberInit();
    session_ = grabber_.Session();
    ChooseDrive(track.Drive);
    grabber_.OpenDrive();
    grabber_.SetReadMode(0);
    grabber_.SetTrackIndex(track.Number - 1);
    bool complete = false;
    if (grabber_.PrepareTrack() && ticket_.IsCurrent()) {
        TakeFormat();
        status_.Set(StatusConstants::Opening);
        complete = ReadTrack() && !operation_.Status.Idle();
    }
    if (!IsOvertaken()) grabber_.GrabberClose();
    if (!ticket_.IsCurrent()) return;
    if (document_.History.Current() && !(complete && filling_.LengthIsAsExpected())) {
        status_.End();
        presentation_.View.BuildOverviewSummary();
    }
}

// The last drive of that name; the first of all if no drive has it.
void TrackImport::ChooseDrive(const std::string& drive) {
    std::int32_t chosen = 1;
    const std::int32_t count = grabber_.DriveCount();
    for (std::int32_t number = 1; number <= count; ++number) {
        grabber_.SetDriveNum(number);
        if (grabber_.DriveName() == drive) chosen = number;
    }
    grabber_.SetDriveNum(chosen);
}

void TrackImport::TakeFormat() {
    DocumentFormat& format = document_.Format;
    format.Frequency = kFrequency;
    format.Channels = kChannels;
    format.BitsPerSample = kBits;
    presentation_.Rate.SetSampleRate(kFrequency);
    files_.SetFormatPCM(kFrequency, kChannels, kBits);
    format.FormatDescription = files_.GetFormatText();
}

bool TrackImport::ReadTrack() {
    if (!filling_.Begin(Bytes(grabber_.TrackValues() * 2))) return false;
    grabber_.StartReading();
    const bool read = ReadBlocks();
    if (!IsOvertaken()) grabber_.StopReading();
    return read && ticket_.IsCurrent() && filling_.End() && filling_.Push();
}

bool TrackImport::ReadBlocks() {
    for (int failures = 0; !operation_.Status.Idle() && failures <= kMostFailures;) {
        GrabberCompanion::Samples block;
        const bool delivered = grabber_.ReadBlock(kSectorsPerBlock, block);
        // The companion's own progress is an event, too.
        if (!ticket_.IsCurrent()) return false;
        if (!delivered) {
            ++failures;
            continue;
        }
        failures = 0;
        const automation::ArrayView<std::int16_t> samples(block.Get());
        if (samples.Elements().empty()) break;
        if (!filling_.Append(samples.Elements())) return false;
        const double part = std::min(filling_.PartDone(), 1.0);
        if (!filling_.Report(static_cast<int>(part * 100))) return false;
    }
    return true;
}

}  // namespace mavrin2::editor
