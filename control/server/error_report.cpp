#include "control/server/error_report.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "automation/error_information.h"
#include "automation/text.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::server {
namespace {

using interfaces::ErrorConstants;

struct Report {
    ErrorConstants Code;
    std::uint32_t Status;
    const char* Description;
};

constexpr Report kUnexpected = {ErrorConstants::UNEXPECTED, 0x80040300, "Unexpected error."};

constexpr Report kReports[] = {
    {ErrorConstants::BUSY, 0x80040301, "Busy error."},
    {ErrorConstants::MEMORY, 0x80040302, "Exceeded available memory."},
    {ErrorConstants::FORMATFILE, 0x80040303, "FormatFile error."},
    {ErrorConstants::FORMATNOTSUPPORT, 0x80040304, "Format is not supported."},
    {ErrorConstants::OUTDRIVER, 0x80040305, "Output Driver error."},
    {ErrorConstants::INPDRIVER, 0x80040306, "Input Driver error."},
    {ErrorConstants::MIXERDRIVER, 0x80040307, "Mixer Driver error."},
    {ErrorConstants::ACMDRIVER, 0x80040308, "ACM Driver error."},
    {ErrorConstants::FILEACCESS, 0x80040309, "File Access error."},
    {ErrorConstants::INVALIDOPERATION, 0x8004030A, "Invalid operation."},
    {ErrorConstants::INVALIDPARAM, 0x8004030B, "Invalid parameter(argument)."},
    {ErrorConstants::ASPIDRIVER, 0x8004030C, "Aspi Driver error."},
    {ErrorConstants::CONTROLNOTINSTALLED, 0x8004030D, "Control(object) isn't installed."},
    {ErrorConstants::INDEXOUTOFRANGE, 0x8004030E, "Index is out of range."},
    {ErrorConstants::STREAM, 0x8004030F, "The stream is closed or unavailable."},
};

std::string ProgramIdentifier() {
    LPOLESTR text = nullptr;
    if (FAILED(ProgIDFromCLSID(interfaces::CLSID_Mavrin2, &text)) || !text) return {};
    std::string result = automation::ToUtf8(text);
    CoTaskMemFree(text);
    return result;
}

}  // namespace

HRESULT ReportError(ErrorConstants code) {
    if (code == ErrorConstants::NOERRORS) return S_OK;
    const auto* found = std::ranges::find(kReports, code, &Report::Code);
    const Report& report = found == std::end(kReports) ? kUnexpected : *found;
    automation::LeaveErrorInformation(interfaces::IID_IMavrin2, ProgramIdentifier(),
                                      report.Description);
    return static_cast<HRESULT>(report.Status);
}

}  // namespace mavrin2::server
