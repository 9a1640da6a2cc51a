#pragma once

#include <functional>
#include <optional>

#include "companions/ontiva/chunks/chunk_file.h"
#include "companions/ontiva/files/edited_file.h"
#include "companions/ontiva/files/tail_edit.h"

namespace mavrin2::ontiva {

// Puts chunks in place of others. New ones come at the end, so that the sound stays where it is.
class ChunkUpdate {
public:
    // `chunks` are those of `file`. `isOld` says which of them go.
    ChunkUpdate(const ChunkFile& chunks, const std::function<bool(const Chunk&)>& isOld);

    // `added` are whole chunks. Edits `file`, unless the same can be done by the returned change.
    // Neither if there is nothing to change. Throws NotWritable when the file would get too long.
    std::optional<TailEdit> Apply(EditedFile& file, std::string_view added) const;

private:
    bool IsInPlace(const EditedFile& file, std::string_view added) const;
    TailEdit InPlace(const EditedFile& file, std::string_view added) const;
    void Rewrite(EditedFile& file, std::string_view added) const;
    void EndSound(EditedFile& file) const;
    TailEdit::Switch SizeSwitch(std::int64_t end) const;
    std::string FillerHeader(std::int64_t length) const;

    const ChunkFile& chunks_;
    std::vector<const Chunk*> old_;  // with the fillers after the sound, in the order of the file
    std::int64_t keptEnd_ = ChunkFile::kFirstChunk;  // the end of the last chunk that stays
    std::int64_t end_;                               // of the last chunk
    bool atEnd_ = true;                              // everything old follows what stays
};

}  // namespace mavrin2::ontiva
