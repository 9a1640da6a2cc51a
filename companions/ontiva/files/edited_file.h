#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "companions/ontiva/files/byte_source.h"
#include "platform/files.h"

namespace mavrin2::ontiva {

// A file with edits that are collected and not written: reading shows the edited bytes. What is to
// be written is a list of pieces, each either a stretch of the file or bytes that are held.
class EditedFile final : public ByteSource {
public:
    // Reads through `file`, which must outlive this object. Throws FileFault if its length is
    // unknown.
    explicit EditedFile(platform::File& file);

    std::int64_t Length() const override { return length_; }
    std::size_t Read(std::int64_t offset, std::span<char> target) const override;

    // Puts `bytes` in place of the `count` bytes at `offset`; both are cut to the file's end.
    void Replace(std::int64_t offset, std::int64_t count, std::string_view bytes);

    struct Piece {
        std::int64_t Start;   // in the edited file
        std::int64_t Count;   // bytes
        bool Held;            // otherwise a stretch of the file
        std::int64_t Origin;  // in the file, or in the held bytes
    };
    std::span<const Piece> Pieces() const { return pieces_; }
    std::string_view HeldBytes(const Piece& piece) const {
        return std::string_view(held_).substr(static_cast<std::size_t>(piece.Origin),
                                              static_cast<std::size_t>(piece.Count));
    }
    bool IsEdited() const { return edited_; }

private:
    // The index of the piece that begins at `offset`, after splitting the one around it.
    std::size_t Split(std::int64_t offset);
    std::size_t PieceAt(std::int64_t offset) const;

    platform::File& file_;
    std::vector<Piece> pieces_;
    std::string held_;
    std::int64_t length_;
    bool edited_ = false;
};

}  // namespace mavrin2::ontiva
