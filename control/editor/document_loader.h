#pragma once

#include <filesystem>

#include "control/editor/document_filling.h"
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
          filling_(document, operation, storage, presentation, ticket) {}
    DocumentLoader(const DocumentLoader&) = delete;
    DocumentLoader& operator=(const DocumentLoader&) = delete;

    // The outcome is in the last error. A load that is cancelled keeps what was read; one whose
    // work file cannot be made or written leaves no document and FILEACCESS.
    void LoadThroughCompanion(const std::filesystem::path& path, FormatTypeConstants type);

private:
    bool OpenSource(const std::filesystem::path& path, FormatTypeConstants type);
    bool TakeFormat();
    // False when the load has ended without a document.
    bool ReadBlocks();

    Document document_;
    Operation operation_;
    Presentation presentation_;
    SoundFileCompanion& companion_;
    OperationTicket& ticket_;
    StatusGuard status_;
    DocumentFilling filling_;
    Bytes expected_;  // as the source promises
};

}  // namespace mavrin2::editor
