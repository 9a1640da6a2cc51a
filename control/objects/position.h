#pragma once

#include <memory>

#include "automation/object.h"
#include "control/editor/positions.h"
#include "control/editor/undo_history.h"
#include "control/interfaces/position.h"
#include "control/objects/attachment.h"
#include "platform/ports.h"

namespace mavrin2::objects {

// The host's view of positions. It owns the history of versions, and with it their files.
class CMavrin2Position final
    : public automation::AutomationObject<CMavrin2Position, interfaces::IMavrin2Position> {
public:
    CMavrin2Position(IUnknown* outer, std::shared_ptr<platform::FileSystem> files)
        : AutomationObject(outer), history_(std::move(files)) {}
    CMavrin2Position(IUnknown* outer, const platform::Ports& ports)
        : CMavrin2Position(outer, ports.Files) {}
    ~CMavrin2Position() = default;

    editor::UndoHistory& History() { return history_; }
    void Attach(editor::Positions& positions, IUnknown* control) {
        positions_.Attach(positions, control);
    }
    void Detach() { positions_.Detach(); }

    STDMETHODIMP SecToSamples(LONG Millisec, LONG* Samples) override;
    STDMETHODIMP SamplesToSec(LONG Samples, LONG* Millisec) override;
    STDMETHODIMP GoToMarker(LONG Num) override;
    STDMETHODIMP get_StartSelect(LONG* Value) override;
    STDMETHODIMP put_StartSelect(LONG Value) override;
    STDMETHODIMP get_EndSelect(LONG* Value) override;
    STDMETHODIMP put_EndSelect(LONG Value) override;
    STDMETHODIMP get_StartView(LONG* Value) override;
    STDMETHODIMP put_StartView(LONG Value) override;
    STDMETHODIMP get_EndView(LONG* Value) override;
    STDMETHODIMP put_EndView(LONG Value) override;
    STDMETHODIMP get_Selected(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_Selected(VARIANT_BOOL Value) override;
    STDMETHODIMP get_TotalSamples(LONG* Value) override;
    STDMETHODIMP get_CurrentPosition(LONG* Value) override;
    STDMETHODIMP put_CurrentPosition(LONG Value) override;

private:
    editor::UndoHistory history_;
    Attachment<editor::Positions> positions_;
};

}  // namespace mavrin2::objects
