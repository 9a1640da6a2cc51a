#pragma once

#include <cstdint>

#include "control/editor/ports.h"
#include "control/editor/range_edit.h"
#include "control/signal/quantity.h"

namespace mavrin2::processing {

// Turns the companion's progress within a block into that within the document, so that a host sees
// one rising percentage while a transform copies, processes and copies again.
class TransformProgress {
public:
    explicit TransformProgress(editor::EditorEvents& events) : events_(events) {}

    // The blocks of one transform. While it exists, the companion's events are reported as its
    // progress, unless another operation has taken its place.
    class Passes {
    public:
        // The selection is `length` bytes from `start` in a document of `total` bytes. `count`
        // passes share its percentages.
        Passes(TransformProgress& progress, const editor::RangeEdit& edit, signal::Bytes start,
               signal::Bytes length, signal::Bytes total, int count)
            : progress_(progress),
              outer_(progress.passes_),
              edit_(edit),
              start_(start),
              length_(length),
              total_(total),
              count_(count) {
            progress.passes_ = this;
        }
        Passes(const Passes&) = delete;
        Passes& operator=(const Passes&) = delete;
        ~Passes() { progress_.passes_ = outer_; }

        void Next() { ++done_; }

    private:
        friend class TransformProgress;

        TransformProgress& progress_;
        Passes* outer_;
        const editor::RangeEdit& edit_;
        signal::Bytes start_;
        signal::Bytes length_;
        signal::Bytes total_;
        int count_;
        int done_ = 0;
    };

    bool IsInPasses() const { return passes_; }
    // `percent` of the present pass, from the companion.
    void Report(std::int32_t percent);

private:
    editor::EditorEvents& events_;
    Passes* passes_ = nullptr;
};

}  // namespace mavrin2::processing
