#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/binding/late_binding.h"

namespace mavrin2::script {

// A colour by its name, as #rrggbb or as #rgb: 0x00RRGGBB. Nothing for anything else.
std::optional<std::uint32_t> ColorOf(std::string_view text);

// The colours that a user has chosen for parts of a picture, by the parts' names. What is chosen to
// be transparent is drawn in one colour and then in another, so that it can be told apart.
class PictureColors {
public:
    // Each setting is PART=COLOR, or several between commas. Throws UsageError: also for a part
    // that is chosen twice.
    explicit PictureColors(std::span<const std::string> settings);

    bool HasTransparent() const;
    // Sets the properties of a Colors object, without the parts that are transparent.
    void ApplyTo(const binding::LateBound& colors) const;
    // Those parts; `color` is 0x00RRGGBB.
    void PutTransparent(const binding::LateBound& colors, std::uint32_t color) const;

private:
    struct Choice {
        std::size_t Part;                    // in the table of parts
        std::optional<std::uint32_t> Color;  // 0x00RRGGBB; without: transparent
    };

    void Add(std::string_view setting);

    std::vector<Choice> choices_;
};

}  // namespace mavrin2::script
