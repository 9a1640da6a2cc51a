#pragma once

#include "automation/object.h"
#include "control/editor/document_format.h"
#include "control/interfaces/file_info.h"
#include "control/objects/attachment.h"

namespace mavrin2::objects {

// Shows the document's format to hosts.
class CMavrin2FileInfo final
    : public automation::AutomationObject<CMavrin2FileInfo, interfaces::IMavrin2FileInfo> {
public:
    explicit CMavrin2FileInfo(IUnknown* outer) : AutomationObject(outer) {}
    ~CMavrin2FileInfo() = default;

    void Attach(editor::DocumentFormat& format, IUnknown* control) {
        format_.Attach(format, control);
    }
    void Detach() { format_.Detach(); }

    STDMETHODIMP get_Frequency(interfaces::FrequencyConstants* Value) override;
    STDMETHODIMP get_Channels(interfaces::ChannelsConstants* Value) override;
    STDMETHODIMP get_FormatString(BSTR* Value) override;
    STDMETHODIMP get_SaveExtraInfoEnabled(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_SaveExtraInfoEnabled(VARIANT_BOOL Value) override;

private:
    Attachment<editor::DocumentFormat> format_;
    VARIANT_BOOL saveExtraInfoEnabled_ = 1;
};

}  // namespace mavrin2::objects
