#pragma once

namespace mavrin2::editor {

// What the editor tells the host. Host code runs inside each call and may do anything: the caller
// checks afterwards whether its operation still stands (OperationTicket).
class EditorEvents {
public:
    virtual ~EditorEvents() = default;

    virtual void BlockOperation(int percent) = 0;  // 0 … 100
    virtual void EndOperation() = 0;
    virtual void ChangePosition() = 0;
};

}  // namespace mavrin2::editor
