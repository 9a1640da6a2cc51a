#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "automation/connection_points.h"
#include "automation/object.h"
#include "automation/type_information.h"
#include "companions/contracts/pindle.h"
#include "companions/pindle/disc/disc.h"
#include "companions/pindle/disc/drive_list.h"

namespace mavrin2::pindle {

// What the grabber reads discs with.
struct GrabberServices {
    std::function<const DiscLibrary*()> Library;  // null if not installed
    std::function<DriveSources(const DiscLibrary&)> Sources;
};

// The class KovPindle: one track of one disc at a time.
class GrabberCompanion final
    : public automation::AutomationObject<GrabberCompanion, contracts::IPindleCD2> {
public:
    GrabberCompanion(IUnknown* outer, GrabberServices services);

    void* FindInterface(REFIID iid);

    STDMETHODIMP GrabberInit() override;
    STDMETHODIMP GrabberClose() override;
    STDMETHODIMP OpenDrive() override;
    STDMETHODIMP get_DriveCount(SHORT* count) override;
    STDMETHODIMP put_DriveNum(SHORT number) override;
    STDMETHODIMP get_DriveName(BSTR* name) override;
    STDMETHODIMP put_ReadMode(LONG mode) override;
    STDMETHODIMP put_TrackIndex(LONG index) override;
    STDMETHODIMP get_TrackSizeFactor1(LONG* sectors) override;
    STDMETHODIMP get_TrackInfo3(LONG* sector) override;
    STDMETHODIMP get_TrackSizeFactor2(LONG* values) override;
    STDMETHODIMP StartReading(LONG first) override;
    STDMETHODIMP PrepareTrack(LONG* status) override;
    STDMETHODIMP StopReading() override;
    STDMETHODIMP ReadBlock(LONG count, SAFEARRAY** samples, LONG* read, LONG* status) override;

private:
    // The track that was chosen, if the open disc has it.
    std::optional<Track> Chosen() const;
    const Drive* Selected() const;
    void FireProgress();

    GrabberServices services_;
    automation::ConnectionPoints points_;
    automation::ClassInformation classInformation_;
    const DiscLibrary* library_ = nullptr;
    std::vector<Drive> drives_;
    std::size_t drive_ = 0;  // from 1, 0 for none
    std::unique_ptr<Disc> disc_;
    std::int32_t trackIndex_ = 0;
    bool verify_ = true;
    std::optional<Track> reading_;
    std::int32_t done_ = 0;  // sectors of the track
};

}  // namespace mavrin2::pindle
