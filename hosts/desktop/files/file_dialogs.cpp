#include "hosts/desktop/files/file_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <iterator>

namespace mavrin2::desktop {
namespace {

struct WrittenFormat {
    const char* Extension;
    const char* Filter;
};
constexpr WrittenFormat kFormats[] = {
    {"wav", "WAV (*.wav)"},           {"flac", "FLAC (*.flac)"}, {"mp3", "MP3 (*.mp3)"},
    {"ogg", "Ogg Vorbis (*.ogg)"},    {"opus", "Opus (*.opus)"}, {"aiff", "AIFF (*.aiff *.aif)"},
    {"vox", "Dialogic ADPCM (*.vox)"}};

QString FilterOf(const QString& extension) {
    const auto* const found = std::ranges::find_if(
        kFormats, [&](const WrittenFormat& format) { return extension == format.Extension; });
    return found == std::end(kFormats) ? kFormats[0].Filter : found->Filter;
}

}  // namespace

QString AskFileToOpen(QWidget* parent, const QString& folder) {
    return QFileDialog::getOpenFileName(
        parent, "Open a Sound File", folder,
        "Sound files (*.wav *.aif *.aiff *.au *.caf *.flac *.mp3 *.ogg *.oga *.opus *.m4a *.aac "
        "*.wma *.mpc *.vox *.w64 *.mka *.mp4 *.mkv *.webm);;All files (*)");
}

QString AskFileToSave(QWidget* parent, const QString& title, const QString& suggested) {
    QFileDialog dialog(parent, title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const WrittenFormat& format : kFormats)
        filters += format.Filter;
    dialog.setNameFilters(filters);
    const auto takeSuffix = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(filter.section("*.", 1).section(QRegularExpression("[ )]"), 0, 0));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, takeSuffix);
    const QFileInfo file(suggested);
    const QString filter = FilterOf(file.suffix().toLower());
    dialog.selectNameFilter(filter);
    takeSuffix(filter);
    dialog.setDirectory(file.absolutePath());
    dialog.selectFile(file.fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace mavrin2::desktop
