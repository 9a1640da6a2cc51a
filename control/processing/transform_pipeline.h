#pragma once

#include <cstdint>
#include <functional>
#include <type_traits>

#include "control/editor/range_edit.h"
#include "control/editor/services.h"
#include "control/interfaces/enumerations.h"
#include "control/processing/transform_companion.h"
#include "control/processing/transform_operations.h"
#include "control/processing/transform_region.h"

namespace mavrin2::processing {

using interfaces::TrimConstants;

// Runs the operations of the Transform object on the selection. Each is a range edit: the part
// before the selection is copied, the selection is loaded into memory, processed by the companion
// and written, and the part after it is copied. Unless a document is open, the control idle,
// something selected and a channel switched on for operations, nothing happens, not even to the
// last error. A transform that fails or is cancelled leaves document and history as they were.
class TransformPipeline {
public:
    TransformPipeline(const editor::Document& document, const editor::Operation& operation,
                      const editor::Storage& storage, const editor::Presentation& presentation,
                      TransformCompanion& companion)
        : document_(document),
          operation_(operation),
          storage_(storage),
          presentation_(presentation),
          companion_(companion) {}

    // The host's parameters, as the companion takes them.
    template <class... Parameters>
    void Run(const TransformOperation<Parameters...>& operation,
             std::type_identity_t<Parameters>... parameters) {
        Run(operation.Status, operation.Blocks, [&](SAFEARRAY** block, const Cancelled&) {
            return (companion_.Operations().*operation.Call)(block, parameters...);
        });
    }

    void MixStereoChannels(float leftToLeft, float leftToRight, float rightToLeft,
                           float rightToRight);
    void Trim(float decibels, float fadeTime, TrimConstants ends);
    void DeleteSilence(float decibels, float attackTime, float releaseTime);
    // At the cursor, or in place of the selection. Needs an open document and an idle control only.
    void InsertSilence(std::int32_t milliseconds);

private:
    using Cancelled = std::function<bool()>;
    // The companion's status.
    using Process = std::function<HRESULT(SAFEARRAY** block, const Cancelled& cancelled)>;

    void Run(editor::StatusConstants status, BlockKind blocks, const Process& process);
    editor::EditRegion SelectedRegion() const;
    // False when the edit has been abandoned.
    bool WriteProcessed(editor::RangeEdit& edit, BlockKind blocks, const Process& process);
    HRESULT ProcessBlocks(TransformRegion& region, BlockKind blocks, const Process& process,
                          TransformProgress::Passes& passes, const editor::RangeEdit& edit);

    editor::Document document_;
    editor::Operation operation_;
    editor::Storage storage_;
    editor::Presentation presentation_;
    TransformCompanion& companion_;
};

}  // namespace mavrin2::processing
