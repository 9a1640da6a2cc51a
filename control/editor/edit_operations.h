#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

#include "control/editor/material.h"
#include "control/editor/range_edit.h"
#include "control/editor/services.h"
#include "control/editor/sound_file_companion.h"

namespace mavrin2::editor {

// The edits of the selection. Each does nothing unless a document is open, the control idle and,
// where the edit needs one, something selected; otherwise it clears the last error first and leaves
// its outcome there. Pasted or mixed sound that breaks off is kept up to that point, with the
// error that ended it; when nothing came, and after every other failure, nothing has changed.
class EditOperations {
public:
    // Gives a companion of the caller's own; false when it is not installed.
    using CompanionSource = std::function<bool(SoundFileCompanion& companion)>;

    EditOperations(const Document& document, const Operation& operation, const Storage& storage,
                   const Presentation& presentation, CompanionSource newCompanion)
        : document_(document),
          operation_(operation),
          storage_(storage),
          presentation_(presentation),
          newCompanion_(std::move(newCompanion)) {}

    // Writes the selection to the clip file. One that is cancelled leaves what was written there.
    void Copy();
    // Copies the selection and deletes it, unless it could not be copied.
    void Cut();
    void DeleteSelect();

    // Puts the sound of the clip file, or of a file of any format, in the place of the selection or
    // at the current position; there the sound under the crossfade goes. A paste that is cancelled
    // keeps what was pasted.
    void Paste();
    void PasteFromFile(const std::filesystem::path& path);
    // Mixes it into the document, up to the end of either. Levels in percent.
    void Mix(float documentLevel, float materialLevel);
    void MixFromFile(float documentLevel, const std::filesystem::path& path, float materialLevel);

    // Samples that pasting and mixing have limited to full scale, and converting them before.
    std::int64_t LimitedSamples() const { return limitedSamples_; }

private:
    // What became of a block of the material.
    enum class Passed { Written, End, Failed };
    using Process = std::function<Passed(const Material::Block&)>;

    // The guard of an edit; clears the last error.
    bool Begin(bool needsSelection);
    // False when it failed, or something else was started in an event.
    bool CopySelection();
    ErrorConstants WriteClip(const OperationTicket& ticket, StatusGuard& status);
    bool OpenClip(ClipMaterial& clip);
    bool OpenFile(FileMaterial& file, const std::filesystem::path& path);
    EditRegion PastedRegion() const;
    void PasteMaterial(StatusConstants value, Material& material, std::optional<Bytes> length);
    void MixMaterial(StatusConstants value, Material& material, float documentLevel,
                     float materialLevel);
    // Passes the material to the edit and commits or abandons it.
    void Transfer(RangeEdit& edit, Material& material, const Process& process,
                  const std::function<int()>& percent);
    Material::Ending PassBlocks(RangeEdit& edit, Material& material, const Process& process,
                                const std::function<int()>& percent);

    Document document_;
    Operation operation_;
    Storage storage_;
    Presentation presentation_;
    CompanionSource newCompanion_;
    std::int64_t limitedSamples_ = 0;
};

}  // namespace mavrin2::editor
