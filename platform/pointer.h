#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace mavrin2::platform {

// Shapes of the mouse pointer. The system's come first, numbered as hosts number them.
enum class PointerShape {
    Arrow = 1,
    Cross,
    IBeam,
    Icon,
    SizeAll,
    SizeNESW,
    SizeNS,
    SizeNWSE,
    SizeWE,
    UpArrow,
    Hourglass,
    NoDrop,
    ArrowHourglass,
    ArrowQuestion,
    OldSize,
    // With an image; the first one is the host's.
    Custom = 99,
    LeftChannel = 201,
    RightChannel = 202,
    Grab = 204,
    MarkerZone = 205
};

// 0xAARRGGBB, colours not multiplied by alpha, rows from the top.
struct PointerImage {
    int Width = 0;  // 1 … 256
    int Height = 0;
    int HotSpotX = 0;
    int HotSpotY = 0;
    std::vector<std::uint32_t> Pixels;
};

struct Pointer {
    Pointer() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): one of the system's is a pointer as it is.
    Pointer(PointerShape shape) : Shape(shape) {}
    Pointer(PointerShape shape, std::shared_ptr<const PointerImage> image)
        : Shape(shape), Image(std::move(image)) {}

    PointerShape Shape = PointerShape::Arrow;
    std::shared_ptr<const PointerImage> Image;  // null for the system's shapes

    bool operator==(const Pointer&) const = default;
};

}  // namespace mavrin2::platform
