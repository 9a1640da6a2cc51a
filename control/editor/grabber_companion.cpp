#include "control/editor/grabber_companion.h"

#include "automation/guarded.h"
#include "automation/text.h"
#include "companions/contracts/companion_events.h"

namespace mavrin2::editor {

using contracts::IPindleCD2;
using contracts::PindleEvent;

namespace {

using Progress = std::function<void(std::int32_t)>;

constexpr automation::EventReaction<Progress> kReactions[] = {
    {static_cast<DISPID>(PindleEvent::Progress), 1,
     [](Progress& progress, std::span<const LONG> percent) { progress(percent[0]); }},
};

}  // namespace

void GrabberCompanion::Attach(automation::ComPtr<IPindleCD2> companion) {
    companion_ = std::move(companion);
    // One without events works too.
    events_.Open(companion_.Get(), contracts::DIID_IPindleCD2Events,
                 automation::HandlerOf<Progress>(kReactions, progress_));
}

void GrabberCompanion::Release() {
    Disconnect();
    companion_.Reset();
}

template <class... Parameters, class... Arguments>
HRESULT GrabberCompanion::Call(HRESULT (STDMETHODCALLTYPE IPindleCD2::*method)(Parameters...),
                               Arguments... arguments) {
    return automation::Guarded([&]() -> HRESULT {
        const auto companion = companion_;
        return companion ? (companion.Get()->*method)(arguments...) : E_FAIL;
    });
}

void GrabberCompanion::GrabberInit() {
    ++session_;
    Call(&IPindleCD2::GrabberInit);
}

void GrabberCompanion::GrabberClose() {
    ++session_;
    Call(&IPindleCD2::GrabberClose);
}

void GrabberCompanion::OpenDrive() {
    Call(&IPindleCD2::OpenDrive);
}

std::int32_t GrabberCompanion::DriveCount() {
    SHORT count = 0;
    Call(&IPindleCD2::get_DriveCount, &count);
    return count;
}

void GrabberCompanion::SetDriveNum(std::int32_t number) {
    Call(&IPindleCD2::put_DriveNum, static_cast<SHORT>(number));
}

std::string GrabberCompanion::DriveName() {
    automation::Bstr name;
    Call(&IPindleCD2::get_DriveName, name.Put());
    return name.Utf8();
}

void GrabberCompanion::SetReadMode(std::int32_t mode) {
    Call(&IPindleCD2::put_ReadMode, LONG{mode});
}

void GrabberCompanion::SetTrackIndex(std::int32_t index) {
    Call(&IPindleCD2::put_TrackIndex, LONG{index});
}

std::int64_t GrabberCompanion::TrackValues() {
    LONG sectors = 0;
    LONG unused = 0;
    LONG values = 0;
    Call(&IPindleCD2::get_TrackSizeFactor1, &sectors);
    Call(&IPindleCD2::get_TrackInfo3, &unused);
    Call(&IPindleCD2::get_TrackSizeFactor2, &values);
    return std::int64_t{sectors} * values;
}

void GrabberCompanion::StartReading() {
    Call(&IPindleCD2::StartReading, LONG{0});
}

bool GrabberCompanion::PrepareTrack() {
    LONG status = 1;
    Call(&IPindleCD2::PrepareTrack, &status);
    return status == 0;
}

void GrabberCompanion::StopReading() {
    Call(&IPindleCD2::StopReading);
}

bool GrabberCompanion::ReadBlock(std::int32_t count, Samples& samples) {
    LONG read = 0;
    LONG status = 1;
    Call(&IPindleCD2::ReadBlock, LONG{count}, samples.Put(), &read, &status);
    return status == 0;
}

}  // namespace mavrin2::editor
