#include "hosts/desktop/canvas/editor_widget.h"

#include <QPainter>
#include <QtMath>
#include <exception>
#include <utility>

#include "hosts/desktop/canvas/pointer_cursor.h"

namespace mavrin2::desktop {
namespace {

constexpr QRgb kBackground = 0xFFD4D0C8;

// The screen's pixels that a size covers.
QSize InPixels(QSize size, double scale) {
    return {qCeil(size.width() * scale), qCeil(size.height() * scale)};
}

std::shared_ptr<QImage> NewImage(QSize size, double scale) {
    auto image = std::make_shared<QImage>(size, QImage::Format_RGB32);
    image->setDevicePixelRatio(scale);
    image->fill(kBackground);
    return image;
}

}  // namespace

EditorWidget::EditorWidget(IUnknown& control, QWidget* parent) : QWidget(parent), tip_(*this) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    const double scale = devicePixelRatioF();
    image_ = NewImage(InPixels(size(), scale), scale);
    control_ = std::make_unique<container::HostedControl>(control, *this, image_->width(),
                                                          image_->height(), true);
}

EditorWidget::~EditorWidget() {
    control_.reset();
    if (ControlArea* const area = std::exchange(area_, nullptr)) area->Orphan();
}

QSize EditorWidget::sizeHint() const {
    return {900, 320};
}

std::unique_ptr<platform::ControlWindow> EditorWidget::NewChild(const RECT& place, const RECT& clip,
                                                                platform::WindowHandler& handler) {
    if (area_) return nullptr;
    auto area = std::make_unique<ControlArea>(static_cast<Canvas&>(*this), place, clip, handler);
    area_ = area.get();
    update();
    return area;
}

void EditorWidget::Fit() {
    const double scale = devicePixelRatioF();
    const QSize pixels = InPixels(size(), scale);
    if (image_->size() == pixels && image_->devicePixelRatio() == scale) return;
    image_ = NewImage(pixels, scale);
    if (area_) area_->MakeInvalid();
    try {
        control_->Resize(pixels.width(), pixels.height());
    } catch (const std::exception& error) {
        qWarning("resizing: %s", error.what());
    }
}

void EditorWidget::paintEvent(QPaintEvent*) {
    Fit();  // the widget may have moved to a screen of another density
    if (area_) area_->PaintIfInvalid();
    const auto image = image_;
    QPainter(this).drawImage(0, 0, *image);
}

void EditorWidget::resizeEvent(QResizeEvent*) {
    Fit();
}

void EditorWidget::hideEvent(QHideEvent*) {
    LoseCapture();
}

bool EditorWidget::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::WindowBlocked:
        case QEvent::WindowDeactivate:
            LoseCapture();
            break;
        case QEvent::Leave:
            tip_.Clear();
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

void EditorWidget::mousePressEvent(QMouseEvent* event) {
    if (const auto press = mouse_.Press(*event, devicePixelRatioF())) Send(*press);
}

// Which press is a second one is decided by the time and place of the first.
void EditorWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void EditorWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (const auto release = MouseInput::Release(*event, devicePixelRatioF())) Send(*release);
}

void EditorWidget::mouseMoveEvent(QMouseEvent* event) {
    Send(MouseInput::Move(*event, devicePixelRatioF()));
}

void EditorWidget::wheelEvent(QWheelEvent* event) {
    if (const auto turn = mouse_.Turn(*event, devicePixelRatioF())) Send(*turn);
}

void EditorWidget::Send(const platform::MouseEvent& event) {
    tip_.Clear();
    if (area_) area_->Send(event);
}

void EditorWidget::LoseCapture() {
    tip_.Clear();
    if (area_) area_->LoseCapture();
}

void EditorWidget::ShowPointer(const platform::Pointer& pointer) {
    setCursor(CursorOf(pointer, devicePixelRatioF()));
}

void EditorWidget::ShowTip(const std::string& text) {
    tip_.Set(QString::fromStdString(text));
}

void EditorWidget::Leave() {
    area_ = nullptr;
    image_->fill(kBackground);
    update();
}

}  // namespace mavrin2::desktop
