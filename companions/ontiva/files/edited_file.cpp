#include "companions/ontiva/files/edited_file.h"

#include <algorithm>

namespace mavrin2::ontiva {
namespace {

std::int64_t LengthOf(platform::File& file) {
    const auto length = file.Length();
    if (!length) throw FileFault("cannot tell the length of the file");
    return *length;
}

}  // namespace

EditedFile::EditedFile(platform::File& file) : file_(file), length_(LengthOf(file)) {
    if (length_ > 0) pieces_.push_back({0, length_, false, 0});
}

std::size_t EditedFile::PieceAt(std::int64_t offset) const {
    const auto after = std::upper_bound(
        pieces_.begin(), pieces_.end(), offset,
        [](std::int64_t place, const Piece& piece) { return place < piece.Start; });
    return static_cast<std::size_t>(after - pieces_.begin()) - 1;
}

std::size_t EditedFile::Read(std::int64_t offset, std::span<char> target) const {
    std::size_t done = 0;
    if (offset < 0 || offset >= length_) return 0;
    for (std::size_t i = PieceAt(offset); i < pieces_.size() && done < target.size(); ++i) {
        const Piece& piece = pieces_[i];
        const std::int64_t skipped = offset + static_cast<std::int64_t>(done) - piece.Start;
        const auto part = target.subspan(
            done, std::min(target.size() - done, static_cast<std::size_t>(piece.Count - skipped)));
        if (piece.Held) {
            const auto from = static_cast<std::size_t>(piece.Origin + skipped);
            std::copy_n(held_.data() + from, part.size(), part.data());
        } else if (file_.Read(piece.Origin + skipped, std::as_writable_bytes(part)) !=
                   part.size()) {
            throw FileFault("cannot read the file");
        }
        done += part.size();
    }
    return done;
}

std::size_t EditedFile::Split(std::int64_t offset) {
    if (offset >= length_) return pieces_.size();
    const std::size_t index = PieceAt(offset);
    Piece& piece = pieces_[index];
    const std::int64_t kept = offset - piece.Start;
    if (kept == 0) return index;
    const Piece rest{offset, piece.Count - kept, piece.Held, piece.Origin + kept};
    pieces_.reserve(pieces_.size() + 1);
    pieces_[index].Count = kept;
    pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(index) + 1, rest);
    return index + 1;
}

void EditedFile::Replace(std::int64_t offset, std::int64_t count, std::string_view bytes) {
    offset = std::clamp<std::int64_t>(offset, 0, length_);
    count = std::clamp<std::int64_t>(count, 0, length_ - offset);
    if (count == 0 && bytes.empty()) return;
    edited_ = true;

    const std::size_t first = Split(offset);
    const std::size_t last = Split(offset + count);
    const auto added = static_cast<std::int64_t>(bytes.size());
    const auto origin = static_cast<std::int64_t>(held_.size());
    held_.append(bytes);
    auto place = pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(first),
                               pieces_.begin() + static_cast<std::ptrdiff_t>(last));
    // Bytes written one after the other are one piece.
    const bool goesOn = place != pieces_.begin() && (place - 1)->Held &&
                        (place - 1)->Origin + (place - 1)->Count == origin;
    if (goesOn) {
        (place - 1)->Count += added;
    } else if (added > 0) {
        place = pieces_.insert(place, {offset, added, true, origin}) + 1;
    }
    if (added != count)
        for (; place != pieces_.end(); ++place)
            place->Start += added - count;
    length_ += added - count;
}

}  // namespace mavrin2::ontiva
