#pragma once

#include <cstdint>
#include <filesystem>

#include "control/editor/grabber_companion.h"
#include "control/editor/markers/marker_files.h"
#include "control/editor/services.h"
#include "control/editor/sound_file_companion.h"

namespace mavrin2::editor {

// The ways in which a document begins and ends: a new one, one from a sound file, none.
class DocumentOpening {
public:
    DocumentOpening(const Document& document, const Operation& operation, const Storage& storage,
                    const Presentation& presentation, SoundFileCompanion& companion,
                    GrabberCompanion& grabber, MarkerFiles& markers, Activity& activity)
        : document_(document),
          operation_(operation),
          storage_(storage),
          presentation_(presentation),
          companion_(companion),
          grabber_(grabber),
          markers_(markers),
          activity_(activity) {}

    // An empty document. With a format that no document has (`frequency` below 1, `channels`
    // neither 1 nor 2) the last error becomes FORMATNOTSUPPORT, the result is success and nothing
    // else changes. FILEACCESS and no document if its work file cannot be created.
    ErrorConstants New(std::int32_t frequency, std::int32_t channels);

    // Closes what is open and reads a file. The result is that of this call, whatever another one,
    // made from inside an event, has left as the last error.
    ErrorConstants Open(const std::filesystem::path& path, FormatTypeConstants type);

    void Close() { TryClose(); }

private:
    // False when a host has opened or closed another document meanwhile, in an event.
    bool CloseDocument();
    bool TryClose();
    void Load(const std::filesystem::path& path, FormatTypeConstants type, OperationTicket& ticket);
    void LoadTrack(const std::filesystem::path& path, OperationTicket& ticket);

    Document document_;
    Operation operation_;
    Storage storage_;
    Presentation presentation_;
    SoundFileCompanion& companion_;
    GrabberCompanion& grabber_;
    MarkerFiles& markers_;
    Activity& activity_;
    std::uint64_t closings_ = 0;  // ways in which a document was to end
};

}  // namespace mavrin2::editor
