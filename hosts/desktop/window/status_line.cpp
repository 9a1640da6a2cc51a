#include "hosts/desktop/window/status_line.h"

#include "hosts/desktop/sound/text.h"

namespace mavrin2::desktop {

StatusLine::StatusLine(QStatusBar& bar, const Editor& editor)
    : editor_(editor),
      position_(AddLabel(bar, 1)),
      selection_(AddLabel(bar, 2)),
      length_(AddLabel(bar, 1)),
      format_(AddLabel(bar, 2)) {}

QLabel* StatusLine::AddLabel(QStatusBar& bar, int stretch) {
    auto* const label = new QLabel;
    bar.addPermanentWidget(label, stretch);
    return label;
}

QString StatusLine::Time(qint32 frames) const {
    const auto milliseconds = editor_.Part("Position").Call("SamplesToSec", frames);
    return TimeText(milliseconds.lVal);
}

void StatusLine::Update() {
    if (!editor_.IsOpen()) {
        for (QLabel* const label : {position_, selection_, length_, format_})
            label->clear();
        return;
    }
    const SoundPosition at = editor_.Position();
    position_->setText("Position " + Time(at.Start));
    selection_->setText(at.Selected ? "Selection " + Time(at.Start) + " to " + Time(at.End) + ", " +
                                          Time(at.End - at.Start)
                                    : QString());
    length_->setText("Length " + Time(at.Total));
    const auto information = editor_.Part("FileInfo");
    QString format = QString::fromStdString(information.Text("FormatString"));
    if (format.isEmpty())
        format = QString("%1 Hz; %2 channels")
                     .arg(information.Number("Frequency"))
                     .arg(information.Number("Channels"));
    format_->setText(format);
}

}  // namespace mavrin2::desktop
