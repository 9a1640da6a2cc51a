#include "control/processing/transform_region.h"

#include <algorithm>
#include <span>

namespace mavrin2::processing {

using View = automation::ArrayView<std::int16_t>;

TransformRegion::TransformRegion(signal::Bytes length, bool split, std::size_t pieceBytes) {
    const auto samples = static_cast<std::size_t>(length.Count()) / 2;
    const std::size_t count = split ? 2 : 1;
    for (std::size_t i = 0; i < count; ++i)
        blocks_.emplace_back(samples / count);
    if (split) piece_.resize(std::min(pieceBytes / 2, samples));
}

bool TransformRegion::Load(editor::WaveStream& source) {
    if (blocks_.size() > 1) return LoadSplit(source);
    const View block(blocks_[0].Get());
    const auto bytes = std::as_writable_bytes(block.Elements());
    return source.Read(bytes) == bytes.size();
}

bool TransformRegion::LoadSplit(editor::WaveStream& source) {
    const View left(blocks_[0].Get());
    const View right(blocks_[1].Get());
    const std::size_t frames = left.Elements().size();
    for (std::size_t done = 0; done < frames;) {
        const std::size_t count = std::min(frames - done, piece_.size() / 2);
        const auto bytes = std::as_writable_bytes(std::span(piece_).first(count * 2));
        if (source.Read(bytes) != bytes.size()) return false;
        std::int16_t* const lefts = left.Elements().data() + done;
        std::int16_t* const rights = right.Elements().data() + done;
        for (std::size_t i = 0; i < count; ++i) {
            lefts[i] = piece_[2 * i];
            rights[i] = piece_[2 * i + 1];
        }
        done += count;
    }
    return true;
}

bool TransformRegion::IsValid() const {
    return std::ranges::all_of(blocks_, [](const Samples& block) {
        VARTYPE type = VT_EMPTY;
        return block.Get() && SafeArrayGetDim(block.Get()) == 1 &&
               SUCCEEDED(SafeArrayGetVartype(block.Get(), &type)) && type == VT_I2;
    });
}

bool TransformRegion::Write(editor::WaveStream& target) {
    if (blocks_.size() > 1) return WriteJoined(target);
    const View block(blocks_[0].Get());
    return block.Elements().empty() || target.Write(std::as_bytes(block.Elements()));
}

bool TransformRegion::WriteJoined(editor::WaveStream& target) {
    const View left(blocks_[0].Get());
    const View right(blocks_[1].Get());
    const std::size_t frames = left.Elements().size();
    const std::size_t both = std::min(frames, right.Elements().size());
    // A region that was empty has no piece yet, and may have grown.
    if (piece_.empty()) piece_.resize(std::min<std::size_t>(frames, 65536) * 2);
    for (std::size_t done = 0; done < frames;) {
        const std::size_t count = std::min(frames - done, piece_.size() / 2);
        const std::size_t paired = done < both ? std::min(count, both - done) : 0;
        const std::int16_t* const lefts = left.Elements().data() + done;
        const std::int16_t* const rights = right.Elements().data() + done;
        for (std::size_t i = 0; i < paired; ++i) {
            piece_[2 * i] = lefts[i];
            piece_[2 * i + 1] = rights[i];
        }
        for (std::size_t i = paired; i < count; ++i) {
            piece_[2 * i] = lefts[i];
            piece_[2 * i + 1] = 0;
        }
        if (!target.Write(std::as_bytes(std::span(piece_).first(count * 2)))) return false;
        done += count;
    }
    return true;
}

}  // namespace mavrin2::processing
