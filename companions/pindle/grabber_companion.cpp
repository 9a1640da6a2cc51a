#include "companions/pindle/grabber_companion.h"

#include <algorithm>

#include "automation/safe_array.h"
#include "automation/text.h"

namespace mavrin2::pindle {
namespace {

constexpr LONG kReady = 0;
constexpr LONG kUnreadable = 1;

template <class Value>
HRESULT Give(Value* target, Value value) {
    if (!target) return E_POINTER;
    *target = value;
    return S_OK;
}

}  // namespace

GrabberCompanion::GrabberCompanion(IUnknown* outer, GrabberServices services)
    : AutomationObject(outer),
      services_(std::move(services)),
      points_(Identity(), {&contracts::DIID_IPindleCD2Events}),
      classInformation_(Identity(), &contracts::PindleLibrary, contracts::CLSID_KovPindle) {}

void* GrabberCompanion::FindInterface(REFIID iid) {
    if (IsEqualGUID(iid, IID_IConnectionPointContainer))
        return static_cast<IConnectionPointContainer*>(&points_);
    if (IsEqualGUID(iid, IID_IProvideClassInfo) || IsEqualGUID(iid, IID_IProvideClassInfo2))
        return static_cast<IProvideClassInfo2*>(&classInformation_);
    return nullptr;
}

STDMETHODIMP GrabberCompanion::GrabberInit() {
    return automation::Guarded([&]() -> HRESULT {
        GrabberClose();
        library_ = services_.Library();
        if (!library_) return E_FAIL;
        drives_ = ListDrives(services_.Sources(*library_));
        drive_ = drives_.empty() ? 0 : 1;
        return S_OK;
    });
}

STDMETHODIMP GrabberCompanion::GrabberClose() {
    reading_.reset();
    disc_.reset();
    drives_.clear();
    drive_ = 0;
    return S_OK;
}

const Drive* GrabberCompanion::Selected() const {
    return drive_ >= 1 && drive_ <= drives_.size() ? &drives_[drive_ - 1] : nullptr;
}

STDMETHODIMP GrabberCompanion::OpenDrive() {
    return automation::Guarded([&]() -> HRESULT {
        reading_.reset();
        disc_.reset();
        const Drive* drive = Selected();
        if (drive && library_) disc_ = library_->Open(drive->Source);
        return disc_ ? S_OK : E_FAIL;
    });
}

STDMETHODIMP GrabberCompanion::get_DriveCount(SHORT* count) {
    return Give(count, static_cast<SHORT>(std::min<std::size_t>(drives_.size(), INT16_MAX)));
}

STDMETHODIMP GrabberCompanion::put_DriveNum(SHORT number) {
    drive_ = static_cast<std::size_t>(std::max<SHORT>(number, 0));
    return Selected() ? S_OK : E_INVALIDARG;
}

STDMETHODIMP GrabberCompanion::get_DriveName(BSTR* name) {
    return automation::Guarded([&]() -> HRESULT {
        if (!name) return E_POINTER;
        const Drive* drive = Selected();
        *name = drive ? automation::NewBstr(automation::ToOle(std::filesystem::path(drive->Name)))
                      : nullptr;
        return drive ? S_OK : E_FAIL;
    });
}

STDMETHODIMP GrabberCompanion::put_ReadMode(LONG mode) {
    verify_ = mode == 0;
    return S_OK;
}

STDMETHODIMP GrabberCompanion::put_TrackIndex(LONG index) {
    trackIndex_ = index;
    reading_.reset();
    return Chosen() ? S_OK : E_INVALIDARG;
}

std::optional<Track> GrabberCompanion::Chosen() const {
    if (!disc_) return std::nullopt;
    const auto& tracks = disc_->Tracks();
    const auto found = std::find_if(tracks.begin(), tracks.end(), [&](const Track& track) {
        return track.Number == std::int64_t{trackIndex_} + 1;
    });
    return found == tracks.end() ? std::nullopt : std::optional(*found);
}

STDMETHODIMP GrabberCompanion::get_TrackSizeFactor1(LONG* sectors) {
    return Give(sectors, LONG{Chosen().value_or(Track()).Sectors});
}

STDMETHODIMP GrabberCompanion::get_TrackInfo3(LONG* sector) {
    return Give(sector, LONG{Chosen().value_or(Track()).First});
}

STDMETHODIMP GrabberCompanion::get_TrackSizeFactor2(LONG* values) {
    return Give(values, LONG{kSectorValues});
}

STDMETHODIMP GrabberCompanion::PrepareTrack(LONG* status) {
    const auto track = Chosen();
    return Give(status, track && track->Sound && track->Sectors > 0 ? kReady : kUnreadable);
}

STDMETHODIMP GrabberCompanion::StartReading(LONG first) {
    reading_.reset();
    const auto track = Chosen();
    if (!track || !track->Sound || first < 0 || first > track->Sectors) return E_FAIL;
    reading_ = track;
    done_ = first;
    return S_OK;
}

STDMETHODIMP GrabberCompanion::StopReading() {
    reading_.reset();
    return S_OK;
}

STDMETHODIMP GrabberCompanion::ReadBlock(LONG count, SAFEARRAY** samples, LONG* read,
                                         LONG* status) {
    return automation::Guarded([&]() -> HRESULT {
        if (!samples || !read || !status) return E_POINTER;
        *samples = nullptr;
        *read = 0;
        *status = kUnreadable;
        if (count < 1) return E_INVALIDARG;
        if (!reading_) return E_UNEXPECTED;
        const std::int32_t sectors = std::min<std::int32_t>(count, reading_->Sectors - done_);
        automation::SafeArray<std::int16_t> block(static_cast<std::size_t>(sectors) *
                                                  kSectorValues);
        {
            const automation::ArrayView<std::int16_t> view(block.Get());
            if (!disc_->Read(reading_->First + done_, view.Elements(), verify_)) return S_FALSE;
        }
        done_ += sectors;
        *samples = block.Detach();
        *read = sectors;
        *status = kReady;
        // A handler may do anything, even close the drive.
        FireProgress();
        return S_OK;
    });
}

void GrabberCompanion::FireProgress() {
    const automation::ComPtr<IUnknown> alive(Identity());
    const std::int64_t all = std::max(reading_->Sectors, 1);
    const VARIANT percent =
        automation::Variant::Int32(static_cast<LONG>(std::int64_t{done_} * 100 / all));
    automation::FireEvent(points_.At(0), static_cast<DISPID>(contracts::PindleEvent::Progress),
                          {&percent, 1});
}

}  // namespace mavrin2::pindle
