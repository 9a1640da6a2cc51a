#pragma once

#include <cstdint>
#include <span>

#include "control/editor/new_work_file.h"
#include "control/editor/services.h"

namespace mavrin2::editor {

// The work file of a document that is being read from a source, block by block, and the display of
// how far it is. Deleted unless it becomes the document. Where a call fails because of the work
// file, FILEACCESS is the last error.
class DocumentFilling {
public:
    DocumentFilling(const Document& document, const Operation& operation, const Storage& storage,
                    const Presentation& presentation, OperationTicket& ticket)
        : document_(document),
          operation_(operation),
          presentation_(presentation),
          ticket_(ticket),
          target_(storage) {}
    DocumentFilling(const DocumentFilling&) = delete;
    DocumentFilling& operator=(const DocumentFilling&) = delete;

    // Creates the file in the document's format, for a source that promises this length. False
    // also when a host has overtaken the operation.
    bool Begin(Bytes expected);
    bool Append(std::span<const std::int16_t> samples);
    // Samples appended so far, relative to what was promised: 0 … 1, more if there were more.
    double PartDone() const;
    // False when a host has overtaken the operation.
    bool Report(int percent);
    // No more samples will come. As Report(100).
    bool End();
    // Makes the file the document.
    bool Push();

    // Whether the document is as long as promised, to a hundredth; otherwise its overview, which
    // was made while it was read, does not fit it.
    bool LengthIsAsExpected() const;

private:
    bool FailFileAccess();

    Document document_;
    Operation operation_;
    Presentation presentation_;
    OperationTicket& ticket_;
    NewWorkFile target_;
    Bytes expected_;
    Bytes read_;
};

}  // namespace mavrin2::editor
