#include "control/view/mouse/pointers.h"

#include "control/view/mouse/cursor_file.h"

namespace mavrin2::view {

using platform::Pointer;
using platform::PointerShape;

void Pointers::SetMousePointer(std::int32_t number) {
    if (number == number_) return;
    number_ = number;
    if (number == static_cast<std::int32_t>(PointerShape::Custom)) {
        const auto image = ReadCursorFile(files_, customFile_);
        Choose(image ? Pointer(PointerShape::Custom, image) : Pointer());
        return;
    }
    const bool system = number > 0 && number <= static_cast<std::int32_t>(PointerShape::OldSize);
    Choose(system ? static_cast<PointerShape>(number) : PointerShape::Arrow);
}

void Pointers::SetMouseCustom(const std::filesystem::path& file) {
    auto image = ReadCursorFile(files_, file);
    if (!image) return;
    customFile_ = file;
    if (number_ == static_cast<std::int32_t>(PointerShape::Custom))
        Choose({PointerShape::Custom, std::move(image)});
}

void Pointers::Choose(const Pointer& pointer) {
    const bool visible = shown_ == chosen_;
    chosen_ = pointer;
    if (visible) Show(chosen_);
}

void Pointers::Show(const Pointer& pointer) {
    if (pointer == shown_) return;
    shown_ = pointer;
    display_.SetPointer(pointer);
}

}  // namespace mavrin2::view
