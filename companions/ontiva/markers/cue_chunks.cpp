#include "companions/ontiva/markers/cue_chunks.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "companions/ontiva/chunks/chunk_file.h"
#include "companions/ontiva/files/numbers.h"
#include "companions/ontiva/info/text_encoding.h"

namespace mavrin2::ontiva {
namespace {

constexpr std::size_t kCountSize = 4;
constexpr std::size_t kPointSize = 24;
constexpr std::size_t kIdSize = 4;
constexpr std::size_t kLabeledTextSize = 20;

std::int32_t ToFrames(std::uint32_t value) {
    constexpr std::uint32_t kMost = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(value, kMost));
}

// Gives each text to the point it names. Where points share an identifier, the texts of one kind
// go to them in turn.
class CueTexts {
public:
    CueTexts(std::vector<Marker>& markers, const std::vector<std::uint32_t>& ids, std::endian order)
        : markers_(markers), order_(order) {
        for (std::size_t i = 0; i < ids.size(); ++i)
            points_[ids[i]].Markers.push_back(i);
    }

    void Give(std::string_view kind, std::string_view content) {
        if (content.size() < kIdSize) return;
        const auto found = points_.find(GetNumber<std::uint32_t>(content, 0, order_));
        if (found == points_.end()) return;
        Points& points = found->second;
        if (kind == "labl") {
            if (Marker* marker = Next(points, points.Labels))
                marker->Label = TextOf(content.substr(kIdSize));
        } else if (kind == "note") {
            if (Marker* marker = Next(points, points.Notes))
                marker->Note = TextOf(content.substr(kIdSize));
        } else if (kind == "ltxt" && content.size() >= kLabeledTextSize) {
            if (Marker* marker = Next(points, points.Texts)) GiveText(*marker, content);
        }
    }

private:
    struct Points {
        std::vector<std::size_t> Markers;
        std::size_t Labels = 0;  // given so far
        std::size_t Notes = 0;
        std::size_t Texts = 0;
    };

    Marker* Next(const Points& points, std::size_t& given) {
        return given < points.Markers.size() ? &markers_[points.Markers[given++]] : nullptr;
    }

    void GiveText(Marker& marker, std::string_view content) {
        constexpr std::size_t kNumbers = 12;
        marker.Length = ToFrames(GetNumber<std::uint32_t>(content, kIdSize, order_));
        for (std::size_t i = 0; i < marker.Numbers.size(); ++i)
            marker.Numbers[i] = GetNumber<std::uint16_t>(content, kNumbers + 2 * i, order_);
        marker.Text = TextOf(content.substr(kLabeledTextSize));
    }

    std::vector<Marker>& markers_;
    std::endian order_;
    std::unordered_map<std::uint32_t, Points> points_;
};

std::uint32_t IdOf(std::size_t index) {
    return static_cast<std::uint32_t>(index + 1);
}

void AddText(std::string& list, std::string_view kind, std::string content, std::string_view text,
             std::endian order) {
    content.append(text).push_back('\0');
    list.append(RenderChunk(kind, content, order));
}

std::string LabeledText(const Marker& marker, std::uint32_t id, std::endian order) {
    std::string content;
    AddNumber(content, id, order);
    AddNumber(content, static_cast<std::uint32_t>(marker.Length), order);
    content.append(marker.Length > 0 ? "rgn " : "mark");
    for (const std::int32_t number : marker.Numbers)
        AddNumber(content, static_cast<std::uint16_t>(number), order);
    return content;
}

}  // namespace

std::vector<Marker> ReadCues(std::string_view cue, std::string_view list, std::endian order) {
    if (cue.size() < kCountSize) return {};
    const std::size_t count = std::min<std::size_t>(GetNumber<std::uint32_t>(cue, 0, order),
                                                    (cue.size() - kCountSize) / kPointSize);
    std::vector<Marker> markers(count);
    std::vector<std::uint32_t> ids(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t point = kCountSize + kPointSize * i;
        const auto inSound = GetNumber<std::uint32_t>(cue, point + 20, order);
        const auto inOrderOfPlay = GetNumber<std::uint32_t>(cue, point + 4, order);
        ids[i] = GetNumber<std::uint32_t>(cue, point, order);
        markers[i].Position = ToFrames(inSound != 0 ? inSound : inOrderOfPlay);
    }

    CueTexts texts(markers, ids, order);
    for (std::size_t start = kIdSize; start + Chunk::kHeader <= list.size();) {
        const std::size_t length = std::min<std::size_t>(
            GetNumber<std::uint32_t>(list, start + 4, order), list.size() - start - Chunk::kHeader);
        texts.Give(list.substr(start, 4), list.substr(start + Chunk::kHeader, length));
        start += Chunk::kHeader + length + (length & 1);
    }
    return markers;
}

std::string RenderCues(const std::vector<Marker>& markers, std::endian order) {
    std::string cue;
    cue.reserve(kCountSize + kPointSize * markers.size());
    AddNumber(cue, static_cast<std::uint32_t>(markers.size()), order);
    for (std::size_t i = 0; i < markers.size(); ++i) {
        const auto position = static_cast<std::uint32_t>(markers[i].Position);
        AddNumber(cue, IdOf(i), order);
        AddNumber(cue, position, order);
        cue.append("data");
        AddNumber(cue, std::uint32_t{0}, order);  // chunk and block within it
        AddNumber(cue, std::uint32_t{0}, order);
        AddNumber(cue, position, order);
    }
    return cue;
}

// Several readers take only the labels before the first entry of another kind.
std::string RenderCueTexts(const std::vector<Marker>& markers, std::endian order) {
    std::string list = "adtl";
    const auto addAll = [&](std::string_view kind, std::string Marker::*text) {
        for (std::size_t i = 0; i < markers.size(); ++i) {
            if ((markers[i].*text).empty()) continue;
            std::string id;
            AddNumber(id, IdOf(i), order);
            AddText(list, kind, std::move(id), markers[i].*text, order);
        }
    };
    addAll("labl", &Marker::Label);
    addAll("note", &Marker::Note);
    for (std::size_t i = 0; i < markers.size(); ++i) {
        const Marker& marker = markers[i];
        if (marker.Length > 0 || !marker.Text.empty() || marker.Numbers != Marker().Numbers)
            AddText(list, "ltxt", LabeledText(marker, IdOf(i), order), marker.Text, order);
    }
    return list.size() > kIdSize ? list : std::string();
}

}  // namespace mavrin2::ontiva
