#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>

namespace mavrin2::desktop {

// The text that appears when the mouse rests on a widget for 500 ms, for 5 s.
class RestingTip {
public:
    explicit RestingTip(QWidget& widget);

    // The mouse has come to a place with that text; empty for none.
    void Set(const QString& text);
    // The mouse has moved on.
    void Clear();

private:
    void Show();

    QWidget& widget_;
    QString text_;
    QTimer rest_;
    bool shown_ = false;
};

}  // namespace mavrin2::desktop
