#pragma once

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "hosts/desktop/window/editor_window.h"

namespace mavrin2::desktop {

inline constexpr const char* kSound = MAVRIN2_TEST_SOUND;

// Windows on the toolkit's screen that no one sees, with settings and clipboard of their own.
class OnScreen : public ::testing::Test {
public:
    // Turns the wheel; 120 is a notch forward.
    static void Wheel(QWidget& widget, QPointF at, int turn, Qt::MouseButtons held = {});

protected:
    OnScreen();

    // Handles what waits, painting among it.
    static void Settle();
    // What a widget shows.
    static QImage Shown(QWidget& widget);
    // The entry of a menu by its text, without marks for keys.
    static QAction& Entry(EditorWindow& window, const QString& text);
    // Answers the next question with the button of that text.
    static void AnswerWith(const QString& button);
    // Moves, presses or releases the left button, which is `down` afterwards.
    static void Mouse(QWidget& widget, QEvent::Type type, QPoint at, bool down);

    static qint32 Frames(EditorWindow& window) { return window.Sound().Position().Total; }

    QTemporaryDir folder_;
};

}  // namespace mavrin2::desktop
