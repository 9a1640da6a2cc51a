#include "companions/pindle/backends/cdio/cdio_disc.h"

#include <cdio/cdio.h>

#include <algorithm>

namespace mavrin2::pindle {
namespace {

// The library logs through a function that gets no data from its caller.
thread_local bool sectorLost = false;

void OnEvent(long, paranoia_cb_mode_t event) {
    if (event == PARANOIA_CB_SKIP || event == PARANOIA_CB_READERR) sectorLost = true;
}

}  // namespace

std::unique_ptr<Disc> CdioDisc::Open(const std::string& path) {
    CdIo_t* disc = cdio_open(path.c_str(), DRIVER_UNKNOWN);
    if (!disc) return nullptr;
    cdrom_drive_t* drive = cdio_cddap_identify_cdio(disc, CDDA_MESSAGE_FORGETIT, nullptr);
    if (!drive) {
        cdio_destroy(disc);
        return nullptr;
    }
    std::unique_ptr<CdioDisc> made(new CdioDisc(drive));
    cdio_cddap_verbose_set(drive, CDDA_MESSAGE_FORGETIT, CDDA_MESSAGE_FORGETIT);
    if (cdio_cddap_open(drive) != 0) return nullptr;
    made->ListTracks();
    return made;
}

void CdioDisc::ListTracks() {
    const track_t first = cdio_get_first_track_num(drive_->p_cdio);
    const int count = cdio_get_num_tracks(drive_->p_cdio);
    if (first == CDIO_INVALID_TRACK || count == CDIO_INVALID_TRACK) return;
    for (int i = 0; i < count; ++i) {
        const auto number = static_cast<track_t>(first + i);
        const lsn_t start = cdio_cddap_track_firstsector(drive_.get(), number);
        const lsn_t last = cdio_cddap_track_lastsector(drive_.get(), number);
        tracks_.push_back({number, start, std::max(0, last - start + 1),
                           cdio_cddap_track_audiop(drive_.get(), number) == 1});
    }
}

bool CdioDisc::Read(std::int32_t first, std::span<std::int16_t> samples, bool verify) {
    if (verify) return ReadVerified(first, samples);
    while (!samples.empty()) {
        const auto wanted = static_cast<long>(samples.size()) / kSectorValues;
        const long got = cdio_cddap_read(drive_.get(), samples.data(), first, wanted);
        if (got <= 0) return false;
        first += static_cast<std::int32_t>(got);
        samples = samples.subspan(
            std::min(samples.size(), static_cast<std::size_t>(got * kSectorValues)));
    }
    return true;
}

bool CdioDisc::ReadVerified(std::int32_t first, std::span<std::int16_t> samples) {
    constexpr int kRetries = 20;
    if (!reader_) {
        reader_.reset(cdio_paranoia_init(drive_.get()));
        if (!reader_) return false;
        cdio_paranoia_modeset(reader_.get(), PARANOIA_MODE_FULL ^ PARANOIA_MODE_NEVERSKIP);
    }
    if (next_ != first) cdio_paranoia_seek(reader_.get(), first, SEEK_SET);
    sectorLost = false;
    next_ = first;
    for (; !samples.empty(); samples = samples.subspan(kSectorValues), ++next_) {
        const std::int16_t* sector = cdio_paranoia_read_limited(reader_.get(), OnEvent, kRetries);
        // What was guessed is not what is on the disc. The next try begins there anew.
        if (!sector || sectorLost) {
            next_ = -1;
            return false;
        }
        std::copy_n(sector, kSectorValues, samples.begin());
    }
    return true;
}

}  // namespace mavrin2::pindle
