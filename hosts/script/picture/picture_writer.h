#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hosts/binding/late_binding.h"
#include "hosts/script/picture/caption.h"
#include "hosts/script/picture/picture_colors.h"
#include "hosts/script/window/png_file.h"

namespace mavrin2::script {

// Writes pictures of sounds below each other into one file, a band of rows at a time.
class PictureWriter {
public:
    // `width` is the file's. With a caption each picture is under its name. File and colours must
    // outlive this.
    PictureWriter(PngFile& file, int width, const PictureColors& colors,
                  std::optional<Caption> caption)
        : file_(file), width_(width), colors_(colors), caption_(std::move(caption)) {}

    // Draws what the control shows, `height` rows with the caption. Throws CallError,
    // std::system_error or Interruption.
    void Write(IDispatch& control, int height, const std::string& name);

private:
    using DrawRows = std::function<void(int top, const platform::Pixels& rows)>;

    // At most `most` rows at once.
    void WriteBands(const binding::LateBound& colors, int height, int most, const DrawRows& draw);

    PngFile& file_;
    int width_;
    const PictureColors& colors_;
    std::optional<Caption> caption_;
    std::vector<std::uint32_t> band_;
    std::vector<std::uint32_t> overWhite_;
};

}  // namespace mavrin2::script
