#include "control/editor/markers/marker_moves.h"

#include <limits>

namespace mavrin2::editor {
namespace {

// In frames.
struct Place {
    std::int64_t Position;
    std::int64_t Length;

    std::int64_t End() const { return Position + Length; }
};

constexpr std::int64_t kNowhere = -1;

std::int64_t Rounded(double frames) {
    const double rounded = frames + 0.5;
    constexpr double kBeyond = 2147483648.0;  // the first that has no 32 bits
    const bool fits = rounded > -kBeyond && rounded < kBeyond;
    return fits ? static_cast<std::int64_t>(rounded) : kNowhere;
}

// As hosts count.
std::int64_t Low32Bits(std::int64_t frames) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(frames));
}

// A stretch in frames, and where it takes the places of the old version.
class Move {
public:
    Move(const EditStretch& stretch, Bytes frameSize)
        : start_(stretch.OldStart.Count() / frameSize.Count()),
          end_(stretch.OldEnd.Count() / frameSize.Count()),
          grown_((stretch.NewEnd - stretch.NewStart).Count() / frameSize.Count() - (end_ - start_)),
          deleted_(stretch.NewEnd == stretch.NewStart),
          ratio_(static_cast<double>((stretch.NewEnd - stretch.NewStart).Count()) /
                 static_cast<double>((stretch.OldEnd - stretch.OldStart).Count())) {}

    Place Of(Place old) const {
        if (old.Position >= end_) return {old.Position + grown_, old.Length};
        if (IsInside(old.Position)) return FromInside(old);
        if (old.Position < start_) return FromBefore(old);
        return old;
    }

private:
    bool IsInside(std::int64_t frame) const { return start_ < frame && frame < end_; }
    double Scaled(std::int64_t frames) const { return static_cast<double>(frames) * ratio_; }
    // Frames less what scaling makes of them.
    double Unscaled(std::int64_t frames) const {
        return static_cast<double>(frames) * (1 - ratio_);
    }

    Place FromInside(Place old) const {
        if (deleted_) {
            if (IsInside(old.End())) return {start_, 0};
            if (old.End() >= end_) return {start_, old.Length - (end_ - old.Position)};
            return old;
        }
        const std::int64_t position =
            Rounded(static_cast<double>(start_) + Scaled(old.Position - start_));
        if (IsInside(old.End())) return {position, Rounded(Scaled(old.Length))};
        if (old.End() > end_)
            return {position,
                    Rounded(static_cast<double>(old.Length) - Unscaled(end_ - old.Position))};
        return old;
    }
    Place FromBefore(Place old) const {
        if (IsInside(old.End()))
            return {old.Position,
                    deleted_ ? start_ - old.Position
                             : Rounded(Scaled(old.Length) + Unscaled(start_ - old.Position))};
        if (old.End() > end_) return {old.Position, old.Length + grown_};
        return old;
    }

    std::int64_t start_, end_;
    std::int64_t grown_;
    bool deleted_;
    double ratio_;
};

template <class PlaceOf>
std::vector<std::int32_t> MoveAll(MarkerList& list, const PlaceOf& placeOf) {
    const auto store = [](std::int64_t& field, std::int64_t frames) {
        if (frames >= 0 && frames <= std::numeric_limits<std::int32_t>::max()) field = frames;
    };
    std::vector<std::int32_t> moved;
    for (std::size_t i = 0; i < list.Records().size(); ++i) {
        const MarkerRecord& record = list.Records()[i];
        const Place old{Low32Bits(record.Position), Low32Bits(record.Length)};
        const Place place = placeOf(old);
        if (place.Position == old.Position && place.Length == old.Length) continue;
        moved.push_back(static_cast<std::int32_t>(i) + 1);
        MarkerRecord& own = list.OwnRecords()[i];
        if (place.Position != old.Position) store(own.Position, place.Position);
        if (place.Length != old.Length) store(own.Length, place.Length);
    }
    return moved;
}

}  // namespace

std::vector<std::int32_t> AdjustMarkersAfterEdit(MarkerList& list, const EditStretch& stretch,
                                                 Bytes frameSize) {
    const Move move(stretch, frameSize);
    return MoveAll(list, [&](Place old) { return move.Of(old); });
}

std::vector<std::int32_t> ScaleMarkers(MarkerList& list, double ratio) {
    return MoveAll(list, [ratio](Place old) {
        return Place{Rounded(static_cast<double>(old.Position) * ratio),
                     Rounded(static_cast<double>(old.Length) * ratio)};
    });
}

}  // namespace mavrin2::editor
