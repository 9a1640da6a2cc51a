#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "automation/connection_points.h"
#include "automation/object.h"
#include "automation/safe_array.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "companions/contracts/companion_events.h"
#include "companions/contracts/pindle.h"

namespace mavrin2::tests {

// A CD grabber with the same disc in every drive.
class FakePindle final : public automation::AutomationObject<FakePindle, contracts::IPindleCD2> {
public:
    explicit FakePindle(IUnknown* outer)
        : AutomationObject(outer), points_(Identity(), {&contracts::DIID_IPindleCD2Events}) {}
    ~FakePindle() = default;

    void* FindInterface(REFIID iid) {
        return IsEqualGUID(iid, IID_IConnectionPointContainer)
                   ? static_cast<IConnectionPointContainer*>(&points_)
                   : nullptr;
    }

    std::vector<std::string> Drives = {"D:"};
    std::vector<std::vector<std::int16_t>> Tracks;  // from track 1
    std::size_t BlockValues = 100;                  // of a block, whatever is asked for
    // The status of a block, when it is asked for; 0 delivers it.
    std::function<LONG()> OnBlock = [] { return 0; };
    bool Open = false;  // from Init to Close
    std::string Calls;

    void FireProgress(LONG percent) {
        const VARIANT argument = automation::Variant::Int32(percent);
        automation::FireEvent(points_.At(0), static_cast<DISPID>(contracts::PindleEvent::Progress),
                              {&argument, 1});
    }

    STDMETHODIMP GrabberInit() override {
        Open = true;
        return Record("Init");
    }
    STDMETHODIMP GrabberClose() override {
        Open = false;
        return Record("Close");
    }
    STDMETHODIMP OpenDrive() override { return Record("OpenDrive"); }
    STDMETHODIMP get_DriveCount(SHORT* count) override {
        *count = static_cast<SHORT>(Drives.size());
        return S_OK;
    }
    STDMETHODIMP put_DriveNum(SHORT number) override {
        drive_ = static_cast<std::size_t>(number);
        return Record("DriveNum " + std::to_string(number));
    }
    STDMETHODIMP get_DriveName(BSTR* name) override {
        *name = automation::NewBstr(std::string_view(Drives.at(drive_ - 1)));
        return S_OK;
    }
    STDMETHODIMP put_ReadMode(LONG mode) override {
        return Record("ReadMode " + std::to_string(mode));
    }
    STDMETHODIMP put_TrackIndex(LONG index) override {
        track_ = index;
        return Record("TrackIndex " + std::to_string(index));
    }
    STDMETHODIMP get_TrackSizeFactor1(LONG* sectors) override {
        *sectors = static_cast<LONG>(Samples().size() / 2);
        return S_OK;
    }
    STDMETHODIMP get_TrackInfo3(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_TrackSizeFactor2(LONG* values) override {
        *values = 2;
        return S_OK;
    }
    STDMETHODIMP StartReading(LONG first) override {
        read_ = 0;
        return Record("StartReading " + std::to_string(first));
    }
    STDMETHODIMP PrepareTrack(LONG* status) override {
        *status = Samples().empty() ? 1 : 0;
        return Record("Prepare");
    }
    STDMETHODIMP StopReading() override { return Record("StopReading"); }
    STDMETHODIMP ReadBlock(LONG count, SAFEARRAY** samples, LONG* read, LONG* status) override {
        *samples = nullptr;
        *read = 0;
        Record("Read " + std::to_string(count));
        *status = OnBlock();
        if (*status != 0) return E_FAIL;
        const std::vector<std::int16_t> track = Samples();
        const std::size_t values = std::min(BlockValues, track.size() - read_);
        automation::SafeArray<std::int16_t> block(values);
        std::copy_n(track.begin() + static_cast<std::ptrdiff_t>(read_), values,
                    automation::ArrayView<std::int16_t>(block.Get()).Elements().begin());
        read_ += values;
        *samples = block.Detach();
        return S_OK;
    }

private:
    HRESULT Record(const std::string& call) {
        Calls += (Calls.empty() ? "" : ", ") + call;
        return S_OK;
    }
    std::vector<std::int16_t> Samples() const {
        const auto index = static_cast<std::size_t>(track_);
        return track_ >= 0 && index < Tracks.size() ? Tracks[index] : std::vector<std::int16_t>();
    }

    automation::ConnectionPoints points_;
    std::size_t drive_ = 1;
    LONG track_ = 0;
    std::size_t read_ = 0;
};

}  // namespace mavrin2::tests
