#include "control/editor/undo_history.h"

#include <utility>

namespace mavrin2::editor {

UndoHistory::UndoHistory(std::shared_ptr<platform::FileSystem> files) : files_(std::move(files)) {}

UndoHistory::~UndoHistory() {
    FreeChain();
    // Only temporary files are the editor's; a host may have opened others under any name.
    for (const std::filesystem::path& path : tempFiles_)
        if (path.extension() == ".tmp") files_->Remove(path);
}

DocumentState& UndoHistory::Push(const std::filesystem::path& workFile, Bytes total,
                                 const DocumentFormat& format) {
    auto state = std::make_unique<DocumentState>();
    state->WorkFilePath = workFile;
    state->TotalBytes = total;
    state->Frequency = format.Frequency;
    state->Channels = format.Channels;
    tempFiles_.push_back(workFile);
    return PushState(std::move(state));
}

DocumentState& UndoHistory::PushState(std::unique_ptr<DocumentState> state) {
    if (!current_) {
        state->Depth = 1;
        oldest_ = std::move(state);
        current_ = oldest_.get();
        return *current_;
    }
    DropNewerStates();
    if (current_->Depth >= limit_) DropOldestState();
    state->Prev = current_;
    state->Depth = current_->Depth + 1;
    current_->Next = std::move(state);
    current_ = current_->Next.get();
    return *current_;
}

void UndoHistory::DropNewerStates() {
    // One by one, since a chain that frees itself recursively would need as much stack as it is
    // long.
    for (std::unique_ptr<DocumentState> state = std::move(current_->Next); state;
         state = std::move(state->Next))
        files_->Remove(state->WorkFilePath);
}

void UndoHistory::DropOldestState() {
    if (oldest_.get() == current_) return;
    for (DocumentState* state = current_; state != oldest_.get(); state = state->Prev)
        --state->Depth;
    files_->Remove(oldest_->WorkFilePath);
    oldest_ = std::move(oldest_->Next);
    oldest_->Prev = nullptr;
}

bool UndoHistory::StepBack() {
    if (!CanStepBack()) return false;
    current_ = current_->Prev;
    return true;
}

bool UndoHistory::StepForward() {
    if (!CanStepForward()) return false;
    current_ = current_->Next.get();
    return true;
}

void UndoHistory::FreeChain() {
    current_ = nullptr;
    while (oldest_)
        oldest_ = std::move(oldest_->Next);
}

}  // namespace mavrin2::editor
