#pragma once

#include <cstdint>
#include <filesystem>

#include "control/editor/information_companion.h"
#include "control/editor/markers/markers.h"
#include "control/editor/services.h"
#include "control/editor/undo_redo.h"

namespace mavrin2::editor {

// The markers and tags that sound files hold, through the information companion. Failures of the
// companion are not reported. It may run a host's code: what that overtakes ends without a trace in
// the document or the file.
class MarkerFiles {
public:
    MarkerFiles(const Document& document, ExtraInfo& extra, Markers& markers, UndoRedo& batches)
        : document_(document), extra_(extra), markers_(markers), batches_(batches) {}

    // Reads those of a file, and appends its markers to the document as one batch. Part of the
    // operation with this ticket.
    void ImportMarkers(const std::filesystem::path& path, const OperationTicket& ticket);

    // Writes those of the document to a file that is complete otherwise, or of its selection:
    // markers that touch it, clipped to it and counted from its start. `ratio` is the file's sample
    // rate by the document's. Nothing unless the host wants them saved.
    void ExportMarkers(const std::filesystem::path& path, bool selected, double ratio,
                       const OperationTicket& ticket);

private:
    Document document_;
    ExtraInfo& extra_;
    Markers& markers_;
    UndoRedo& batches_;
};

}  // namespace mavrin2::editor
