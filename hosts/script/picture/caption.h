#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/pixels.h"
#include "platform/text.h"

namespace mavrin2::script {

// A line above a picture with its name.
class Caption {
public:
    // Of letters that high, in points.
    explicit Caption(std::int32_t points);

    // In pixels.
    int Height() const { return height_; }
    // Fills the pixels, as high as that, and writes the name; what does not fit is replaced by an
    // ellipsis. Colours are 0x00RRGGBB.
    void Draw(const platform::Pixels& pixels, const std::string& name, std::uint32_t background,
              std::uint32_t text) const;

private:
    std::shared_ptr<const platform::Font> font_;
    int height_;
};

}  // namespace mavrin2::script
