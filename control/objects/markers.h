#pragma once

#include "automation/object.h"
#include "control/editor/markers/markers.h"
#include "control/interfaces/markers.h"
#include "control/objects/attachment.h"

namespace mavrin2::objects {

// The host's view of the document's markers.
class CMavrin2Markers final
    : public automation::AutomationObject<CMavrin2Markers, interfaces::IMavrin2MarkerDetails> {
public:
    explicit CMavrin2Markers(IUnknown* outer) : AutomationObject(outer) {}
    ~CMavrin2Markers() = default;

    void Attach(editor::Markers& markers, IUnknown* control) { markers_.Attach(markers, control); }
    void Detach() { markers_.Detach(); }

    STDMETHODIMP Insert(LONG Position, LONG Length, BSTR Label, BSTR Note) override;
    STDMETHODIMP Delete() override;
    STDMETHODIMP get_Count(LONG* Value) override;
    STDMETHODIMP get_Num(LONG* Value) override;
    STDMETHODIMP put_Num(LONG Value) override;
    STDMETHODIMP get_Length(LONG* Value) override;
    STDMETHODIMP put_Length(LONG Value) override;
    STDMETHODIMP get_Position(LONG* Value) override;
    STDMETHODIMP put_Position(LONG Value) override;
    STDMETHODIMP get_Label(BSTR* Value) override;
    STDMETHODIMP put_Label(BSTR Value) override;
    STDMETHODIMP get_Note(BSTR* Value) override;
    STDMETHODIMP put_Note(BSTR Value) override;
    STDMETHODIMP get_Text(BSTR* Value) override;
    STDMETHODIMP put_Text(BSTR Value) override;
    STDMETHODIMP get_Color(OLE_COLOR* Value) override;
    STDMETHODIMP put_Color(OLE_COLOR Value) override;

    STDMETHODIMP get_Picture(IPictureDisp** Value) override;
    STDMETHODIMP put_Picture(IPictureDisp* Value) override;
    STDMETHODIMP ReservedOperation(LONG) override { return S_OK; }
    STDMETHODIMP get_CutPoint(LONG* Value) override;
    STDMETHODIMP put_CutPoint(LONG Value) override;
    STDMETHODIMP Sort() override;
    STDMETHODIMP get_Play(LONG* Value) override;
    STDMETHODIMP put_Play(LONG Value) override;

private:
    using Text = automation::OleString editor::MarkerTexts::*;

    // The low bits of a field of the current marker; 0 without one.
    template <class Value, class Field>
    HRESULT Get(Value* target, Field editor::MarkerRecord::*field) const;
    HRESULT GetText(BSTR* target, Text text) const;
    HRESULT PutText(BSTR value, Text text);

    Attachment<editor::Markers> markers_;
};

}  // namespace mavrin2::objects
