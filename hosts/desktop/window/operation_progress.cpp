#include "hosts/desktop/window/operation_progress.h"

#include <QPushButton>

namespace mavrin2::desktop {

OperationProgress::OperationProgress(Editor& editor, QWidget& window)
    : QProgressDialog(&window), editor_(editor) {
    constexpr int kMoment = 400;
    setWindowModality(Qt::WindowModal);
    setMinimumDuration(kMoment);
    setAutoReset(false);
    setLabelText("Working...");
    reset();
    // From 0 on the dialog measures time.
    connect(&editor_, &Editor::Started, this, [this] { setValue(0); });
    connect(&editor_, &Editor::Progress, this, &OperationProgress::Show);
    connect(&editor_, &Editor::Ended, this, &QProgressDialog::reset);
}

void OperationProgress::Show(int percent) {
    // Without a running operation the control reports how far it is with the picture's data.
    if (!editor_.IsBusy()) return;
    setValue(percent);  // shows the dialog in time, and handles its events
    if (wasCanceled()) editor_.Stop();
}

}  // namespace mavrin2::desktop
