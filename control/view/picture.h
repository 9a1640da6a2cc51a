#pragma once

#include "control/editor/document_view.h"
#include "control/view/view_services.h"

namespace mavrin2::view {

// The picture of the document, in two layers: what changes only with layout, colours and selection,
// and the composed frame.
class Picture final : public editor::DocumentView {
public:
    explicit Picture(const ViewServices& services);
    ~Picture() override;

    Columns RecomputeColumns() override;
    void UpdateSelectionColumns() override;
    void BuildOverviewSummary() override;
    void FreeOverviewSummary() override;
    void ShowProgress(int percent) override;
    void RecomputeScales() override;
    void RenderBackground() override;
    void Redraw() override;
};

}  // namespace mavrin2::view
