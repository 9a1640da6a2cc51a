#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/times.h"
#include "hosts/script/picture/caption.h"
#include "hosts/script/picture/picture_colors.h"
#include "hosts/script/picture/picture_size.h"

namespace mavrin2::script {

// How the user wants a picture of sound files.
class PictureOptions {
public:
    static std::span<const std::string_view> Names();

    // Throws UsageError: also for an option that is given twice.
    explicit PictureOptions(const CommandLine& line);

    // Of a picture of so many files, in pixels. Throws UsageError if they have no room.
    PictureSize SizeFor(std::size_t files) const;
    // The line above each of several files.
    Caption NameLine() const;
    const PictureColors& Colors() const { return colors_; }

    // How the editor draws, before it opens a file.
    void ApplyStyle(const Editor& editor) const;
    // What it shows of the open document, which messages call `file`. Throws Failure.
    void ApplyView(Editor& editor, const std::string& file) const;

private:
    enum class Side : std::uint8_t { Both, Left, Right, Sum };
    enum class Axis : std::uint8_t { Time, Samples, None };
    enum class Level : std::uint8_t { Samples, Percent, Decibels };

    void ShowSide(Editor& editor, const std::string& file) const;

    std::optional<PictureSize> size_;
    PictureColors colors_;
    TimeRange view_;
    std::optional<TimeRange> selection_;
    bool spectral_;
    Side side_;
    Axis axis_;
    Level level_;
    std::int32_t text_;  // points
};

}  // namespace mavrin2::script
