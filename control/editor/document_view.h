#pragma once

namespace mavrin2::editor {

// What the editor needs of the picture. A view that shows nothing is the base class itself, which
// succeeds and does nothing.
class DocumentView {
public:
    enum class Columns { Failed, Nothing, Recomputed };

    virtual ~DocumentView() = default;

    // The visible range or the document has changed. Nothing: there is no area to show it in.
    // Failed: the work file could not be read, and the picture stays as it was.
    virtual Columns RecomputeColumns() { return Columns::Nothing; }

    // The selection has changed.
    virtual void UpdateSelectionColumns() {}

    // The document has been changed or replaced as a whole. May raise events; sets the status to
    // BuildingOverview while it runs.
    virtual void BuildOverviewSummary() {}
    // The document is going to be closed.
    virtual void ReleaseDocument() {}

    // How far a file has been read or written, in percent.
    virtual void ShowProgress(int /*percent*/) {}

    // The document's channels have changed by an undo or redo.
    virtual void RecomputeScales() {}
    // Rate and channels of a sound that is about to be loaded are known.
    virtual void RecomputeTimeScale() {}

    virtual void RenderBackground() {}
    virtual void Redraw() {}
};

}  // namespace mavrin2::editor
