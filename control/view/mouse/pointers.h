#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

#include "control/view/display.h"
#include "platform/files.h"
#include "platform/pointer.h"

namespace mavrin2::view {

// The pointer over the control: the one that the host has chosen, unless the place under the mouse
// has another.
class Pointers {
public:
    Pointers(Display& display, platform::FileSystem& files) : display_(display), files_(files) {}

    std::int32_t MousePointer() const { return number_; }
    // 0 … 15 one of the system's, 99 that of the custom file; anything else, and 99 without a file
    // that can be read, is the arrow.
    void SetMousePointer(std::int32_t number);
    const std::filesystem::path& MouseCustom() const { return customFile_; }
    // A cursor file. Nothing changes when it cannot be read.
    void SetMouseCustom(const std::filesystem::path& file);

    // The host's.
    const platform::Pointer& Chosen() const { return chosen_; }
    void Show(const platform::Pointer& pointer);

private:
    void Choose(const platform::Pointer& pointer);

    Display& display_;
    platform::FileSystem& files_;
    std::int32_t number_ = 0;
    std::filesystem::path customFile_;
    platform::Pointer chosen_;
    platform::Pointer shown_;
};

}  // namespace mavrin2::view
