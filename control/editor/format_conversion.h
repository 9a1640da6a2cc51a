#pragma once

#include <cstdint>

#include "control/editor/new_work_file.h"
#include "control/editor/services.h"
#include "control/editor/sound_file_companion.h"

namespace mavrin2::editor {

// Changes the rate and the channels of the document, as one step of the history.
class FormatConversion {
public:
    FormatConversion(const Document& document, const Operation& operation, const Storage& storage,
                     const Presentation& presentation, SoundFileCompanion& companion)
        : document_(document),
          operation_(operation),
          storage_(storage),
          presentation_(presentation),
          companion_(companion) {}

    // Hertz, 1 or 2 channels; FORMATNOTSUPPORT for anything else. Does nothing without a document,
    // while the control is busy, or when the document has that format. A conversion that fails or
    // is cancelled changes nothing. The selection and the view end with it.
    void ConvertSampleType(std::int32_t frequency, std::int32_t channels);

    // Samples that conversions have limited to full scale.
    std::int64_t LimitedSamples() const { return limitedSamples_; }

private:
    enum class Outcome { Complete, Cancelled, Overtaken, Failed };

    Outcome Convert(const DocumentFormat& wanted, const OperationTicket& ticket,
                    StatusGuard& status, NewWorkFile& target);
    Outcome ConvertBlocks(const DocumentFormat& wanted, const OperationTicket& ticket,
                          WaveStream& source, WaveStream& target);
    Outcome Fail(ErrorConstants error);
    // The format and the markers of the new version. False when a host has started something else
    // meanwhile.
    bool CarryOver(const DocumentFormat& wanted, const OperationTicket& ticket);
    // Of an output format that is PCM, rate and channels follow.
    void ConvertOutputFormat();
    // With the events that end the operation.
    void Show(const OperationTicket& ticket, bool converted);

    Document document_;
    Operation operation_;
    Storage storage_;
    Presentation presentation_;
    SoundFileCompanion& companion_;
    std::int64_t limitedSamples_ = 0;
};

}  // namespace mavrin2::editor
