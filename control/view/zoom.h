#pragma once

#include <cstdint>

#include "control/editor/services.h"
#include "control/view/document_picture.h"

namespace mavrin2::view {

// Zooming in and out of the open document. Each depth is a level of its own in the document's
// state, so that undo brings it back. What cannot be done is not done; nothing fails.
class Zoom {
public:
    Zoom(DocumentPicture& picture, const editor::Document& document,
         const editor::Operation& operation, editor::ViewRange& range)
        : picture_(picture), document_(document), operation_(operation), range_(range) {}

    // To the selection, of 3 frames at least.
    void ZoomIn();
    // Back to where the last zoom came from.
    void ZoomOut();
    // The whole document; the selection stays.
    void ZoomFull();
    // To a range in frames, which is shifted into the document where it passes its ends.
    void ZoomTo(std::int32_t start, std::int32_t end);
    // The share of full scale, in percent, that a lane is high: 10 … 1000.
    void ZoomVertical(std::int32_t percent);
    // Reads the sound again and draws it.
    void Refresh();

private:
    bool CanPush() const;
    void ShowLevel();

    DocumentPicture& picture_;
    editor::Document document_;
    editor::Operation operation_;
    editor::ViewRange& range_;
};

}  // namespace mavrin2::view
