#include "hosts/desktop/canvas/pointer_cursor.h"

#include <QImage>
#include <QPixmap>
#include <algorithm>
#include <iterator>

namespace mavrin2::desktop {
namespace {

Qt::CursorShape SystemShape(platform::PointerShape shape) {
    // In the order of PointerShape, from Arrow to OldSize.
    static constexpr Qt::CursorShape kShapes[] = {
        Qt::ArrowCursor,   Qt::CrossCursor,     Qt::IBeamCursor,   Qt::ArrowCursor,
        Qt::SizeAllCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor, Qt::SizeFDiagCursor,
        Qt::SizeHorCursor, Qt::UpArrowCursor,   Qt::WaitCursor,    Qt::ForbiddenCursor,
        Qt::BusyCursor,    Qt::WhatsThisCursor, Qt::SizeAllCursor};
    const auto index = static_cast<std::size_t>(shape) - 1;
    return index < std::size(kShapes) ? kShapes[index] : Qt::ArrowCursor;
}

}  // namespace

QCursor CursorOf(const platform::Pointer& pointer, double scale) {
    if (!pointer.Image) return SystemShape(pointer.Shape);
    const platform::PointerImage& source = *pointer.Image;
    QImage image(source.Width, source.Height, QImage::Format_ARGB32);
    for (int y = 0; y < source.Height; ++y)
        std::copy_n(source.Pixels.begin() + static_cast<std::ptrdiff_t>(y) * source.Width,
                    source.Width, reinterpret_cast<std::uint32_t*>(image.scanLine(y)));
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(scale);
    return QCursor(pixmap, qRound(source.HotSpotX / scale), qRound(source.HotSpotY / scale));
}

}  // namespace mavrin2::desktop
