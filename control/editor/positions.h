#pragma once

#include <cstdint>

#include "control/editor/services.h"

namespace mavrin2::editor {

// Selection, view and cursor as hosts read and move them, in frames. Positions outside the document
// are limited to it; without a document getters give 0 and setters do nothing.
class Positions {
public:
    Positions(const Document& document, const OperationStatus& status,
              const Presentation& presentation, Activity& activity)
        : document_(document), status_(status), presentation_(presentation), activity_(activity) {}

    std::int32_t SecToSamples(std::int32_t milliseconds) const;
    std::int32_t SamplesToSec(std::int32_t samples) const;

    // Selects a marker's extent; `number` is limited to the markers there are.
    void GoToMarker(std::int32_t number);

    std::int32_t StartSelect() const;
    void SetStartSelect(std::int32_t frames);
    std::int32_t EndSelect() const;
    void SetEndSelect(std::int32_t frames);
    std::int32_t StartView() const;
    void SetStartView(std::int32_t frames);
    std::int32_t EndView() const;
    void SetEndView(std::int32_t frames);
    std::int16_t Selected() const;
    void SetSelected(std::int16_t selected);
    std::int32_t TotalSamples() const;
    // Where the sound card is while the control is not idle, else the selection's start.
    std::int32_t CurrentPosition() const;
    void SetCurrentPosition(std::int32_t frames);

private:
    std::int32_t ToFrames(Bytes position) const;
    Bytes Limited(std::int32_t frames) const;
    void PushViewLevel();
    void ShowSelection();
    void ShowView();

    Document document_;
    const OperationStatus& status_;
    Presentation presentation_;
    Activity& activity_;
};

}  // namespace mavrin2::editor
