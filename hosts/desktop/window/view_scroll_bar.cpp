#include "hosts/desktop/window/view_scroll_bar.h"

#include <QSignalBlocker>
#include <algorithm>

namespace mavrin2::desktop {

ViewScrollBar::ViewScrollBar(Editor& editor) : QScrollBar(Qt::Horizontal), editor_(editor) {
    connect(this, &QScrollBar::valueChanged, this, &ViewScrollBar::Scroll);
    Update();
}

void ViewScrollBar::Update() {
    constexpr int kStepsPerView = 20;
    const SoundPosition at = editor_.Position();
    const int view = at.ViewEnd - at.ViewStart;
    const QSignalBlocker silent(this);
    setRange(0, std::max(at.Total - view, 0));
    setPageStep(std::max(view, 1));
    setSingleStep(std::max(view / kStepsPerView, 1));
    setValue(at.ViewStart);
}

void ViewScrollBar::Scroll(int start) {
    const int view = pageStep();
    editor_.Perform([&] { editor_.ShowRange(start, start + view); });
}

}  // namespace mavrin2::desktop
