#include "hosts/desktop/canvas/resting_tip.h"

#include <QCursor>
#include <QToolTip>

namespace mavrin2::desktop {

RestingTip::RestingTip(QWidget& widget) : widget_(widget) {
    constexpr int kRest = 500;
    rest_.setSingleShot(true);
    rest_.setInterval(kRest);
    QObject::connect(&rest_, &QTimer::timeout, [this] { Show(); });
}

void RestingTip::Set(const QString& text) {
    Clear();
    text_ = text;
    if (!text_.isEmpty()) rest_.start();
}

void RestingTip::Clear() {
    rest_.stop();
    if (shown_) QToolTip::hideText();
    shown_ = false;
}

void RestingTip::Show() {
    constexpr int kShown = 5000;
    shown_ = true;
    // As rich text it is wrapped between words.
    const QString text = text_.toHtmlEscaped().replace('\n', "<br>");
    QToolTip::showText(QCursor::pos(), "<qt>" + text + "</qt>", &widget_, {}, kShown);
}

}  // namespace mavrin2::desktop
