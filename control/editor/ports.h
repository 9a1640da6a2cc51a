#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "control/signal/quantity.h"

// What the editor needs from the rest of the control. The composition root passes these in; the
// base classes of DocumentView and BlockObserver do nothing, so that the editor works without a
// picture.

namespace mavrin2::editor {

// Events for the host. Host code runs inside each call and may do anything: the caller checks
// afterwards whether its operation is still the current one (OperationTicket).
class EditorEvents {
public:
    virtual ~EditorEvents() = default;

    virtual void BlockOperation(int percent) = 0;  // 0 … 100
    virtual void EndOperation() = 0;
    virtual void ChangePosition() = 0;
    virtual void ChangeMarker(std::int32_t number) = 0;  // in the list, from 1
};

// What is running in the control, be it an operation, playback or recording.
class Activity {
public:
    virtual ~Activity() = default;

    // Cancels a long operation, ends playback and recording.
    virtual void Stop() = 0;
    // Ends playback and recording without an event, where the document goes. What a recording has
    // not stored yet is lost.
    virtual void Halt() = 0;
};

// The picture of the document.
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
    // The same where the summary is already that of the document: only raises the events.
    virtual void ReportOverviewSummary() {}
    // The document is about to be closed.
    virtual void ReleaseDocument() {}

    // The markers to be shown are others, or in other places.
    virtual void MarkersChanged() {}

    // How far a file has been read or written, in percent.
    virtual void ShowProgress(int /*percent*/) {}

    // Rate, channels or bits are those of another document or version: the scales follow. May run a
    // host's code, as everything that draws: a host may put in its own objects for the scales.
    virtual void FormatChanged() {}

    virtual void RenderBackground() {}
    virtual void Redraw() {}
};

// Works at the document's sample rate.
class RateObserver {
public:
    virtual ~RateObserver() = default;

    // In hertz; before the samples of a new document arrive, and when they are converted.
    virtual void SetSampleRate(std::int32_t frequency) = 0;
};

// Sees samples as they are written to a work file, which saves reading them again.
class BlockObserver {
public:
    virtual ~BlockObserver() = default;

    // A sound is loaded from a file that promises this length.
    virtual void BeginLoading(signal::Bytes /*expected*/) {}
    // A new version of the document is being written; if it is completed, it has this length.
    virtual void BeginVersion(signal::Bytes /*length*/) {}
    // The next bytes of interleaved samples; a frame may continue in the next block.
    virtual void Block(std::span<const std::byte> /*samples*/) {}
    virtual void EndLoading() {}
    // When the version is not complete it never will be, and what was seen of it is void.
    virtual void EndVersion(bool /*complete*/) {}
};

}  // namespace mavrin2::editor
