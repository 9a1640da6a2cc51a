#pragma once

#include <filesystem>

#include "control/editor/new_work_file.h"
#include "control/editor/services.h"
#include "control/editor/sound_file_companion.h"

namespace mavrin2::editor {

// Reads one sound file into a work file and makes it the document. Serves one load.
class DocumentLoader {
public:
    DocumentLoader(const Document& document, const Operation& operation, const Storage& storage,
                   const Presentation& presentation, SoundFileCompanion& companion,
                   OperationTicket& ticket)
        : document_(document),
          operation_(operation),
          presentation_(presentation),
          companion_(companion),
          ticket_(ticket),
          status_(operation.Status, ticket),
          target_(storage) {}
    DocumentLoader(const DocumentLoader&) = delete;
    DocumentLoader& operator=(const DocumentLoader&) = delete;

    // The outcome is in the last error. A load that is cancelled keeps what was read; one whose
    // work file cannot be made or written leaves no document and FILEACCESS.
    void LoadThroughCompanion(const std::filesystem::path& path, FormatTypeConstants type);

private:
    bool OpenSource(const std::filesystem::path& path, FormatTypeConstants type);
    bool TakeFormat();
    // Each is false when the load has ended without a document.
    bool ReadBlocks();
    bool PushDocument();
    bool FailFileAccess();
    bool Report(int percent);
    int PercentDone() const;
    bool LengthIsAsExpected() const;

    Document document_;
    Operation operation_;
    Presentation presentation_;
    SoundFileCompanion& companion_;
    OperationTicket& ticket_;
    StatusGuard status_;
    NewWorkFile target_;
    Bytes expected_;
    Bytes read_;
};

}  // namespace mavrin2::editor
