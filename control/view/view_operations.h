#pragma once

#include <cstdint>
#include <filesystem>

#include "control/editor/services.h"
#include "control/interfaces/enumerations.h"
#include "control/view/document_picture.h"
#include "control/view/rectangle.h"
#include "platform/drawing_target.h"

namespace mavrin2::view {

using interfaces::TypeViewConstants;

// What a container and the settings' objects ask of the view.
class ViewOperations {
public:
    ViewOperations(DocumentPicture& picture, editor::OperationStatus& status,
                   editor::ViewRange& range, platform::FileSystem& files)
        : picture_(picture), status_(status), range_(range), files_(files) {}

    // Shows the picture at `bounds` of the target: a copy when they are those of the last time,
    // otherwise it is laid out and computed anew. `rows` are those of the bounds that will be seen:
    // of a large picture no others are drawn and kept, so that it can be drawn in bands.
    void Paint(platform::DrawingTarget& target, const Rectangle& bounds, const RowRange& rows);
    void Paint(platform::DrawingTarget& target, const Rectangle& bounds) {
        Paint(target, bounds, {0, bounds.Height()});
    }

    // Composes the picture and shows it.
    void Redraw() { picture_.Redraw(); }
    void RenderBackground() { picture_.RenderBackground(); }

    // The host's settings are there, before anything is drawn.
    void TakeSettings();
    // A colour has changed that pens are made of.
    void RebuildPens();
    // A scale or its font has changed.
    void ApplyScaleSettings();
    // A channel is shown or hidden, or is (no longer) edited. Counts are up to date before.
    void VisibleChannelsChanged();
    void OperationChannelsChanged();

    std::int16_t TypeBorder() const;
    void SetTypeBorder(std::int16_t type);
    TypeViewConstants TypeView() const;
    // Nothing while the control is busy.
    void SetTypeView(TypeViewConstants type);

    // Writes the last composed picture as a bitmap file. Nothing without a picture or when the file
    // cannot be made.
    void SaveWaveImage(const std::filesystem::path& path);

private:
    DocumentPicture& picture_;
    editor::OperationStatus& status_;
    editor::ViewRange& range_;
    platform::FileSystem& files_;
};

}  // namespace mavrin2::view
