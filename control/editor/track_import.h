#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "control/editor/document_filling.h"
#include "control/editor/grabber_companion.h"
#include "control/editor/services.h"
#include "control/editor/sound_file_companion.h"

namespace mavrin2::editor {

struct TrackPath {
    std::string Drive;        // as the grabber names it, UTF-8
    std::int32_t Number = 0;  // 1 for the disc's first track
};

// 5 for "Track05.cda": the number follows the first five characters of the name, whatever they are.
// 0 without a number.
std::int32_t TrackNumberOf(const std::filesystem::path& path);

// Reads one track of a CD into a work file and makes it the document. Serves one import.
class TrackImport {
public:
    TrackImport(const Document& document, const Operation& operation, const Storage& storage,
                const Presentation& presentation, SoundFileCompanion& files,
                GrabberCompanion& grabber, OperationTicket& ticket)
        : document_(document),
          operation_(operation),
          presentation_(presentation),
          files_(files),
          grabber_(grabber),
          ticket_(ticket),
          status_(operation.Status, ticket),
          filling_(document, operation, storage, presentation, ticket) {}
    TrackImport(const TrackImport&) = delete;
    TrackImport& operator=(const TrackImport&) = delete;

    // A track that cannot be read leaves no document and no error. One that fails in the middle, or
    // is cancelled, keeps what was read. A work file that cannot be made or written leaves no
    // document and FILEACCESS.
    void Import(const TrackPath& track);

private:
    void ChooseDrive(const std::string& drive);
    void TakeFormat();
    // Each is false when the import has ended without a document.
    bool ReadTrack();
    bool ReadBlocks();
    // Whether an import that a host started from inside an event has used the grabber.
    bool IsOvertaken() const { return grabber_.Session() != session_; }

    Document document_;
    Operation operation_;
    Presentation presentation_;
    SoundFileCompanion& files_;
    GrabberCompanion& grabber_;
    OperationTicket& ticket_;
    StatusGuard status_;
    DocumentFilling filling_;
    std::uint64_t session_ = 0;
};

}  // namespace mavrin2::editor
