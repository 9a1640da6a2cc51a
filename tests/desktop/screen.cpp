#include "tests/desktop/screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>
#include <QSettings>
#include <QTimer>
#include <QWheelEvent>

namespace mavrin2::desktop {
OnScreen::OnScreen() {
    QApplication::setOrganizationName("Mavrin2 tests");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder_.path());
}

void OnScreen::Settle() {
    for (int i = 0; i < 3; ++i) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

QImage OnScreen::Shown(QWidget& widget) {
    Settle();
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QAction& OnScreen::Entry(EditorWindow& window, const QString& text) {
    for (QAction* const action : window.findChildren<QAction*>())
        if (action->text().remove('&').remove("...") == text) return *action;
    throw std::runtime_error("no entry " + text.toStdString());
}

void OnScreen::AnswerWith(const QString& button) {
    QTimer::singleShot(0, [button] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        for (QAbstractButton* const one : box->buttons())
            if (one->text().remove('&') == button) return one->click();
        box->reject();
        FAIL() << "no button " << button.toStdString();
    });
}

void OnScreen::Mouse(QWidget& widget, QEvent::Type type, QPoint at, bool down) {
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(type, at, widget.mapToGlobal(at), moves ? Qt::NoButton : Qt::LeftButton,
                      down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void OnScreen::Wheel(QWidget& widget, QPointF at, int turn, Qt::MouseButtons held) {
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, turn}, held, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace mavrin2::desktop

// The toolkit's application ends before other statics do.
int main(int count, char** values) {
    testing::InitGoogleTest(&count, values);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, values);
    return RUN_ALL_TESTS();
}
