#include "control/processing/transform_region.h"

#include <algorithm>
#include <new>

namespace mavrin2::processing {
namespace {

using View = automation::ArrayView<std::int16_t>;

constexpr std::size_t kFrameBytes = 4;

void Split(std::span<const std::int16_t> frames, std::int16_t* left, std::int16_t* right) {
    for (std::size_t i = 0; i < frames.size() / 2; ++i) {
        left[i] = frames[2 * i];
        right[i] = frames[2 * i + 1];
    }
}

// `right` may be shorter.
void Join(std::span<const std::int16_t> left, std::span<const std::int16_t> right,
          std::int16_t* frames) {
    for (std::size_t i = 0; i < right.size(); ++i) {
        frames[2 * i] = left[i];
        frames[2 * i + 1] = right[i];
    }
    for (std::size_t i = right.size(); i < left.size(); ++i) {
        frames[2 * i] = left[i];
        frames[2 * i + 1] = 0;
    }
}

// At most `count` elements from `first`, as many as there are.
std::span<const std::int16_t> Part(std::span<const std::int16_t> channel, std::size_t first,
                                   std::size_t count) {
    const std::size_t from = std::min(first, channel.size());
    return channel.subspan(from, std::min(count, channel.size() - from));
}

}  // namespace

TransformRegion::TransformRegion(signal::Bytes length, bool split, platform::BlockMemory& memory)
    : buffer_(memory) {
    const auto samples = static_cast<std::size_t>(length.Count()) / 2;
    const std::size_t count = split ? 2 : 1;
    for (std::size_t i = 0; i < count; ++i)
        blocks_.emplace_back(samples / count);
    if (split && !buffer_.Take()) throw std::bad_alloc();
}

std::span<std::int16_t> TransformRegion::FramesAt(const editor::WaveStream& file,
                                                  std::size_t count) {
    const auto bytes = buffer_.PieceFor(file.FileOffset(), count * kFrameBytes);
    return {reinterpret_cast<std::int16_t*>(bytes.data()), bytes.size() / kFrameBytes * 2};
}

bool TransformRegion::Load(editor::WaveStream& source) {
    const View left(blocks_.front().Get());
    if (blocks_.size() == 1) {
        const auto bytes = std::as_writable_bytes(left.Elements());
        return source.Read(bytes) == bytes.size();
    }
    const View right(blocks_.back().Get());
    for (std::size_t done = 0; done < left.Elements().size();) {
        const auto frames = FramesAt(source, left.Elements().size() - done);
        if (source.Read(std::as_writable_bytes(frames)) != frames.size_bytes()) return false;
        Split(frames, left.Elements().data() + done, right.Elements().data() + done);
        done += frames.size() / 2;
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
    const View left(blocks_.front().Get());
    if (blocks_.size() == 1) return target.Write(std::as_bytes(left.Elements()));
    const View right(blocks_.back().Get());
    for (std::size_t done = 0; done < left.Elements().size();) {
        const auto frames = FramesAt(target, left.Elements().size() - done);
        const std::size_t count = frames.size() / 2;
        Join(left.Elements().subspan(done, count), Part(right.Elements(), done, count),
             frames.data());
        if (!target.Write(std::as_bytes(frames))) return false;
        done += count;
    }
    return true;
}

}  // namespace mavrin2::processing
