#pragma once

#include <cstdint>

#include "control/editor/markers/marker_bar.h"
#include "control/editor/markers/marker_list.h"
#include "control/editor/markers/marker_settings.h"
#include "control/editor/undo_history.h"

namespace mavrin2::editor {

// The markers of the open document, as hosts and the mouse change them. Setters change the current
// marker and do nothing without one. Frames are not checked: they may be negative or past the end
// of the document.
class Markers {
public:
    Markers(UndoHistory& history, const MarkerSettings& settings, MarkerBar& bar)
        : history_(history), settings_(settings), bar_(bar) {}

    // Appends a marker; the first one becomes current. Colour, play number and cut point come from
    // `text` (marker_text.h), which the marker keeps.
    void Insert(std::int32_t position, std::int32_t length, MarkerTexts texts);
    void Delete();
    void Sort();

    std::int32_t Count() const;
    // From 1; limited to the markers there are.
    std::int32_t Num() const;
    void SetNum(std::int32_t number);

    // Null without markers; valid until the next change of the list.
    const MarkerRecord* Current() const;

    void SetPosition(std::int32_t frames);
    void SetLength(std::int32_t frames);
    void PutCutPoint(std::int32_t frames);
    void SetPlay(std::int32_t value);  // at least 0
    void SetColor(std::uint32_t color);
    void SetText(automation::OleString MarkerTexts::*text, automation::OleStringView value);
    void SetPicture(const MarkerPicture& picture);

    // While the mouse drags a marker: the cut point stays on its sound.
    void MoveMarker(std::int64_t position, std::int32_t length);
    // While the mouse drags the cut point; at least 0.
    void SetCutPoint(std::int32_t frames);

private:
    MarkerList* List() const;
    // Each changes the current marker.
    template <class Change>
    void ChangeShown(const Change& change);
    template <class Change>
    void ChangeUnseen(const Change& change);

    UndoHistory& history_;
    const MarkerSettings& settings_;
    MarkerBar& bar_;
};

}  // namespace mavrin2::editor
