#include "control/editor/information_companion.h"

#include "automation/text.h"

namespace mavrin2::editor {

using automation::Bstr;
using contracts::IOntiva;

namespace {

Bstr PathText(const std::filesystem::path& path) {
    return Bstr(automation::OleStringView(automation::ToOle(path)));
}

}  // namespace

void InformationCompanion::SetInfoSwitch(std::int32_t value) {
    Call(&IOntiva::put_InfoSwitch, LONG{value});
}

bool InformationCompanion::ReadInfo(const std::filesystem::path& path) {
    return SUCCEEDED(Call(&IOntiva::ReadInfo, PathText(path).Get()));
}

bool InformationCompanion::WriteInfo(const std::filesystem::path& path) {
    return SUCCEEDED(Call(&IOntiva::WriteInfo, PathText(path).Get()));
}

std::int32_t InformationCompanion::MarkerCount() {
    LONG count = 0;
    Call(&IOntiva::get_InfoMarkerCount, &count);
    return count;
}

bool InformationCompanion::DescribeMarker(std::int32_t number, StoredMarker& marker) {
    if (FAILED(Call(&IOntiva::put_InfoMarkerNum, LONG{number}))) return false;
    LONG position = 0;
    LONG length = 0;
    if (FAILED(Call(&IOntiva::get_InfoMarkerPosition, &position))) return false;
    Call(&IOntiva::get_InfoMarkerLength, &length);
    const auto text = [&](auto getter) {
        Bstr value;
        Call(getter, value.Put());
        return value.Utf8();
    };
    marker = {position, length, text(&IOntiva::get_InfoMarkerLabel),
              text(&IOntiva::get_InfoMarkerNote), text(&IOntiva::get_InfoMarkerText)};
    return true;
}

void InformationCompanion::ForEachMarker(const std::function<void(const StoredMarker&)>& use) {
    StoredMarker marker;
    const std::int32_t count = MarkerCount();
    if (count > kMostMarkers) return;
    for (std::int32_t number = 1; number <= count; ++number) {
        if (!DescribeMarker(number, marker)) return;
        use(marker);
    }
}

bool InformationCompanion::RemoveMarkers() {
    for (std::int32_t count = MarkerCount(); count != 0;) {
        if (count < 0 || count > kMostMarkers) return false;
        Call(&IOntiva::InfoRemoveMarker);
        const std::int32_t left = MarkerCount();
        if (left >= count) return false;
        count = left;
    }
    return true;
}

bool InformationCompanion::AddMarker(const StoredMarker& marker) {
    const auto text = [](const std::string& utf8) { return Bstr(std::string_view(utf8)); };
    return SUCCEEDED(Call(&IOntiva::InfoAddMarker, LONG{marker.Position}, LONG{marker.Length},
                          text(marker.Label).Get(), text(marker.Note).Get(),
                          text(marker.Text).Get(), LONG{0}, LONG{0}, LONG{0}, LONG{0}));
}

}  // namespace mavrin2::editor
