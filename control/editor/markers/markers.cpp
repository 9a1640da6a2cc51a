#include "control/editor/markers/markers.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

#include "control/editor/markers/marker_text.h"

namespace mavrin2::editor {

MarkerList* Markers::List() const {
    DocumentState* state = history_.Current();
    return state ? &state->Markers : nullptr;
}

void Markers::Insert(std::int32_t position, std::int32_t length, MarkerTexts texts) {
    MarkerList* list = List();
    if (!list) return;
    const MarkerTextValues values = ParseMarkerText(texts.Text);
    bar_.ChangeShown(*list, [&] {
        list->Append({position, length, values.CutPoint, values.Color.value_or(settings_.NewColor),
                      values.Play, std::make_shared<const MarkerTexts>(std::move(texts))});
    });
}

void Markers::Delete() {
    if (MarkerList* list = List()) bar_.ChangeShown(*list, [&] { list->DeleteCurrent(); });
}

void Markers::Sort() {
    if (MarkerList* list = List()) bar_.ChangeShown(*list, [&] { list->Sort(); });
}

std::int32_t Markers::Count() const {
    const MarkerList* list = List();
    return list ? list->Count() : 0;
}

std::int32_t Markers::Num() const {
    const MarkerList* list = List();
    return list ? list->Current() : 0;
}

void Markers::SetNum(std::int32_t number) {
    if (MarkerList* list = List()) list->Select(number);
}

const MarkerRecord* Markers::Current() const {
    const MarkerList* list = List();
    return list ? list->CurrentRecord() : nullptr;
}

template <class Change>
void Markers::ChangeShown(const Change& change) {
    if (!Current()) return;
    MarkerList& list = *List();
    bar_.ChangeShown(list, [&] { change(list.OwnCurrent()); });
}

template <class Change>
void Markers::ChangeUnseen(const Change& change) {
    if (!Current()) return;
    MarkerList& list = *List();
    bar_.ChangeUnseen(list, list.Current(), [&] { change(list.OwnCurrent()); });
}

void Markers::SetPosition(std::int32_t frames) {
    ChangeShown([&](MarkerRecord& marker) { marker.Position = frames; });
}

void Markers::SetLength(std::int32_t frames) {
    ChangeShown([&](MarkerRecord& marker) { marker.Length = frames; });
}

void Markers::PutCutPoint(std::int32_t frames) {
    ChangeShown([&](MarkerRecord& marker) { marker.CutPoint = frames; });
}

void Markers::SetPlay(std::int32_t value) {
    ChangeShown([&](MarkerRecord& marker) {
        marker.Play = static_cast<std::uint32_t>(std::max(value, 0));
    });
}

void Markers::SetColor(std::uint32_t color) {
    const auto change = [&](MarkerRecord& marker) { marker.Color = color; };
    if (settings_.BitmapType > 0)
        ChangeShown(change);
    else
        ChangeUnseen(change);
}

void Markers::SetText(automation::OleString MarkerTexts::*text, automation::OleStringView value) {
    ChangeUnseen([&](MarkerRecord& marker) {
        auto texts = std::make_shared<MarkerTexts>(*marker.Texts);
        (*texts).*text = value;
        marker.Texts = std::move(texts);
    });
}

void Markers::SetPicture(const MarkerPicture& picture) {
    const auto change = [&](MarkerRecord& marker) {
        auto texts = std::make_shared<MarkerTexts>(*marker.Texts);
        texts->Picture = std::make_shared<const MarkerPicture>(picture);
        marker.Texts = std::move(texts);
    };
    if (settings_.BitmapType > 0)
        ChangeShown(change);
    else
        ChangeUnseen(change);
}

void Markers::MoveMarker(std::int64_t position, std::int32_t length) {
    constexpr std::int64_t kMost = std::numeric_limits<std::uint32_t>::max();
    ChangeShown([&](MarkerRecord& marker) {
        if (marker.CutPoint > 0) marker.CutPoint += marker.Position - position;
        marker.CutPoint = std::clamp<std::int64_t>(marker.CutPoint, 0, kMost);
        marker.Position = position;
        marker.Length = length;
    });
}

void Markers::SetCutPoint(std::int32_t frames) {
    PutCutPoint(std::max(frames, 0));
}

}  // namespace mavrin2::editor
