#include "automation/error_information.h"

#include "automation/com_ptr.h"
#include "automation/text.h"

namespace mavrin2::automation {

void LeaveErrorInformation(const IID& interfaceId, std::string_view source,
                           std::string_view description) {
    ComPtr<ICreateErrorInfo> making;
    if (FAILED(CreateErrorInfo(making.Put()))) return;
    OleString sourceText = ToOle(source);
    OleString descriptionText = ToOle(description);
    making->SetGUID(interfaceId);
    making->SetSource(sourceText.data());
    making->SetDescription(descriptionText.data());
    if (const auto made = making.As<IErrorInfo>()) SetErrorInfo(0, made.Get());
}

}  // namespace mavrin2::automation
