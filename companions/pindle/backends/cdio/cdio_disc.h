#pragma once

#include <cdio/paranoia/paranoia.h>

#include "companions/pindle/disc/disc.h"

namespace mavrin2::pindle {

class CdioDisc final : public Disc {
public:
    static std::unique_ptr<Disc> Open(const std::string& path);

    const std::vector<Track>& Tracks() const override { return tracks_; }
    bool Read(std::int32_t first, std::span<std::int16_t> samples, bool verify) override;

private:
    struct CloseDrive {
        void operator()(cdrom_drive_t* drive) const { cdio_cddap_close(drive); }
    };
    struct FreeReader {
        void operator()(cdrom_paranoia_t* reader) const { cdio_paranoia_free(reader); }
    };

    explicit CdioDisc(cdrom_drive_t* drive) : drive_(drive) {}
    void ListTracks();
    bool ReadVerified(std::int32_t first, std::span<std::int16_t> samples);

    std::unique_ptr<cdrom_drive_t, CloseDrive> drive_;
    std::unique_ptr<cdrom_paranoia_t, FreeReader> reader_;
    std::int32_t next_ = -1;  // the sector where `reader_` is
    std::vector<Track> tracks_;
};

}  // namespace mavrin2::pindle
