#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "control/editor/document_format.h"
#include "control/editor/document_state.h"
#include "platform/files.h"

namespace mavrin2::editor {

// The chain of the document's versions. Each has its own work file, so that undo is a move of
// the current version. The history deletes the work file of a version that it drops, and at its end
// every temporary file it ever listed.
class UndoHistory {
public:
    explicit UndoHistory(std::shared_ptr<platform::FileSystem> files);
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;
    ~UndoHistory();

    // The document; null when none is open.
    DocumentState* Current() { return current_; }
    const DocumentState* Current() const { return current_; }
    bool CanStepBack() const { return current_ && current_->Prev; }
    bool CanStepForward() const { return current_ && current_->Next; }

    // Makes a version of a complete work file and appends it after the current one, as the current
    // one. The history owns the file from then on. What had been undone is dropped with its files,
    // and the oldest version too when the limit is reached: one a push, so that a lowered limit
    // does not shorten the chain at once.
    DocumentState& Push(const std::filesystem::path& workFile, Bytes total,
                        const DocumentFormat& format);

    bool StepBack();
    bool StepForward();

    // Forgets all versions; their work files stay until the history ends.
    void FreeChain();

    // The largest number of versions kept, at least 2.
    std::int32_t Limit() const { return limit_; }
    void SetLimit(std::int32_t limit) { limit_ = limit; }

private:
    DocumentState& PushState(std::unique_ptr<DocumentState> state);
    void DropNewerStates();
    void DropOldestState();

    std::shared_ptr<platform::FileSystem> files_;
    std::unique_ptr<DocumentState> oldest_;
    DocumentState* current_ = nullptr;
    std::int32_t limit_ = 1000;
    std::vector<std::filesystem::path> tempFiles_;
};

}  // namespace mavrin2::editor
