#pragma once

#include <cstdint>

#include "automation/safe_array.h"
#include "control/editor/services.h"

namespace mavrin2::editor {

// Sound that is played or recorded right now.
class LiveSound {
public:
    using Samples = automation::SafeArray<std::int16_t>;

    virtual ~LiveSound() = default;

    virtual bool IsLive() const = 0;
    // The latest frames, at most so many; to be asked only while there is live sound.
    virtual Samples RecentSamples(std::int32_t frames) = 0;
};

// Blocks of the document's samples, from and to the host: interleaved, in the document's format.
class SampleArrays {
public:
    using Samples = automation::SafeArray<std::int16_t>;

    SampleArrays(const Document& document, const Operation& operation, const Storage& storage,
                 const Presentation& presentation, LiveSound& live)
        : document_(document),
          operation_(operation),
          storage_(storage),
          presentation_(presentation),
          live_(live) {}

    // While the control plays or records, the latest frames of that, as its companion gives them.
    // Otherwise at most `frames` frames from the selection's start, whether or not anything is
    // selected; fewer at the end of the document. No array without a document or while an operation
    // runs, nor when the samples cannot be read, which is then the last error.
    Samples GetAudioArray(std::int32_t frames);

    // An edit that puts the samples in the place of the selection, or inserts them at its start.
    // INVALIDPARAM for an array that is not one of 16-bit integers with one dimension.
    void PutAudioArray(SAFEARRAY* array);

private:
    Document document_;
    Operation operation_;
    Storage storage_;
    Presentation presentation_;
    LiveSound& live_;
};

}  // namespace mavrin2::editor
