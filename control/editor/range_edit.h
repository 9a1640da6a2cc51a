#pragma once

#include <filesystem>
#include <optional>

#include "control/editor/services.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {

// One change of the document, as a transaction: the part before the selection is copied into a new
// work file, the caller writes what is new, the part behind is copied, and the new file becomes the
// current version. An edit that is not committed leaves document, history and disk as they were.
class RangeEdit {
public:
    // `status` is what the control does meanwhile.
    RangeEdit(const Document& document, const Operation& operation, const Storage& storage,
              const Presentation& presentation, StatusConstants value);
    RangeEdit(const RangeEdit&) = delete;
    RangeEdit& operator=(const RangeEdit&) = delete;
    ~RangeEdit();

    // Copies what stands before the selection. `replacement` is the length of what the caller will
    // write in its place, where that is known: whoever looks at the samples then does it on their
    // way. Then Target() is open at that point and Source()
    // too. False when the edit has ended: it failed, was cancelled or another operation took its
    // place.
    bool BeginEdit(std::optional<Bytes> replacement = std::nullopt);

    // Copies the rest, from where Source() stands, and makes the new version current, with view,
    // selection and events as they follow. False when the edit has ended without a new version.
    bool CommitEdit();

    WaveStream& Target() { return target_; }
    WaveStream& Source() { return source_; }
    // The selection that is being replaced, as it was at the beginning.
    Bytes SelectionStart() const { return selectionStart_; }
    Bytes SelectionEnd() const { return selectionEnd_; }

private:
    // What the selection and the view become, taken before the new version is pushed.
    struct Carried {
        ZoomLevel View;
        bool Selected;
        bool Zoomed;
        std::int32_t Replaced;  // bytes, one frame more than lies between the selection's ends
        std::int32_t Written;   // bytes
    };

    bool ReportBlock();
    bool Open();
    Carried TakeCarried() const;
    void CarryOver(const Carried& carried);
    // False when a host has started something else meanwhile.
    bool ShowNewState();
    void Abandon();
    bool FailBegin();
    bool FailCommit();

    Document document_;
    Operation operation_;
    Storage storage_;
    Presentation presentation_;
    StatusConstants value_;
    OperationTicket ticket_;
    StatusGuard status_;
    WaveStream source_;
    WaveStream target_;
    CopyBuffer buffer_;
    std::filesystem::path targetPath_;
    Bytes selectionStart_;
    Bytes selectionEnd_;
};

}  // namespace mavrin2::editor
