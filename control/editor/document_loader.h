#pragma once

#include <filesystem>

#include "control/editor/services.h"
#include "control/editor/sound_file_companion.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {

// Reads one sound file into a work file and makes it the document. Serves one load.
class DocumentLoader {
public:
    DocumentLoader(const Document& document, const Operation& operation, const Storage& storage,
                   const Presentation& presentation, SoundFileCompanion& companion,
                   OperationTicket& ticket)
        : document_(document),
          operation_(operation),
          storage_(storage),
          presentation_(presentation),
          companion_(companion),
          ticket_(ticket),
          status_(operation.Status, ticket),
          target_(storage.Files) {}
    DocumentLoader(const DocumentLoader&) = delete;
    DocumentLoader& operator=(const DocumentLoader&) = delete;
    ~DocumentLoader();

    // The outcome is in the last error. A load that is cancelled keeps what was read; one whose
    // work file cannot be written leaves no document and FILEACCESS; one whose work file cannot be
    // made leaves no document and no error.
    void LoadThroughCompanion(const std::filesystem::path& path, FormatTypeConstants type);

private:
    bool OpenSource(const std::filesystem::path& path, FormatTypeConstants type);
    bool TakeFormat();
    bool CreateTarget();
    // Each is false when the load has ended without a document.
    bool ReadBlocks();
    bool PushDocument();
    bool Report(int percent);
    int PercentDone() const;
    bool LengthIsAsExpected() const;

    Document document_;
    Operation operation_;
    Storage storage_;
    Presentation presentation_;
    SoundFileCompanion& companion_;
    OperationTicket& ticket_;
    StatusGuard status_;
    WaveStream target_;
    std::filesystem::path targetPath_;
    Bytes expected_;
    Bytes read_;
    Bytes written_;
};

}  // namespace mavrin2::editor
