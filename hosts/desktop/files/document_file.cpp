#include "hosts/desktop/files/document_file.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

#include "hosts/desktop/files/file_dialogs.h"
#include "hosts/desktop/files/recent_files.h"
#include "hosts/desktop/files/write_sound.h"
#include "hosts/desktop/sound/text.h"

namespace mavrin2::desktop {

DocumentFile::DocumentFile(Editor& editor, QWidget& window) : editor_(editor), window_(window) {
    connect(&editor_, &Editor::MarkersChanged, this, [this] {
        markersModified_ = true;
        emit Changed();
    });
    connect(&editor_, &Editor::Changed, this, &DocumentFile::Changed);
}

bool DocumentFile::New() {
    constexpr qint32 kRate = 44100;
    constexpr qint32 kChannels = 2;
    if (!MayLoseChanges()) return false;
    const bool done = editor_.Perform([&] { editor_.Members().Call("New", kRate, kChannels); });
    Opened({});
    return done;
}

bool DocumentFile::Open() {
    if (!MayLoseChanges()) return false;
    const QString last = name_.isEmpty() ? RecentFiles::Names().value(0) : name_;
    const QString name = AskFileToOpen(&window_, QFileInfo(last).absolutePath());
    return !name.isEmpty() && Open(name);
}

bool DocumentFile::Open(const QString& name) {
    // Opening closes what is open, so what can be known before is found out first.
    if (!QFileInfo(name).isFile() || !QFile(name).open(QIODevice::ReadOnly)) {
        RecentFiles::Remove(name);
        emit editor_.Failed("\"" + name + "\" cannot be read. Is there such a file?");
        return false;
    }
    if (!MayLoseChanges()) return false;
    const bool done = editor_.Edit([&] { editor_.Members().Call("Open", FileName(name)); });
    // What was read until then would be taken for the whole file.
    if (editor_.WasStopped()) editor_.Perform([&] { editor_.Members().Call("Close"); });
    Opened(editor_.IsOpen() ? name : QString());
    if (done) RecentFiles::Add(name);
    return done;
}

void DocumentFile::Opened(const QString& name) {
    name_ = name;
    savedVersion_ = editor_.Version();
    markersModified_ = false;
    written_ = WrittenNow();
    emit Changed();
}

bool DocumentFile::Save() {
    if (name_.isEmpty()) return SaveAs();
    if (written_ != WrittenNow()) {
        const auto answer = QMessageBox::question(
            &window_, "Save",
            "Another program has changed \"" + name_ + "\" since it was opened. Replace it?",
            QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Cancel);
        if (answer != QMessageBox::Save) return false;
    }
    return SaveTo(name_);
}

bool DocumentFile::SaveTo(const QString& name) {
    if (!WriteSound(editor_, name, false)) return false;
    RecentFiles::Add(name);
    Opened(name);
    return true;
}

bool DocumentFile::SaveAs() {
    const QString name = AskFileToSave(&window_, "Save", Suggestion({}));
    return !name.isEmpty() && SaveTo(name);
}

bool DocumentFile::SaveSelectionAs() {
    const QString name = AskFileToSave(&window_, "Save the Selection", Suggestion(" part"));
    return !name.isEmpty() && WriteSound(editor_, name, true);
}

bool DocumentFile::IsModified() const {
    return editor_.IsOpen() && (markersModified_ || editor_.Version() != savedVersion_);
}

bool DocumentFile::MayLoseChanges() {
    if (editor_.IsBusy()) return false;
    if (!IsModified()) return true;
    const QString name = name_.isEmpty() ? "the new sound" : QFileInfo(name_).fileName();
    const auto answer = QMessageBox::question(
        &window_, "Unsaved Changes", "Save the changes of " + name + "?",
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save) return Save();
    return answer == QMessageBox::Discard;
}

QDateTime DocumentFile::WrittenNow() const {
    return name_.isEmpty() ? QDateTime() : QFileInfo(name_).lastModified();
}

QString DocumentFile::Suggestion(const QString& addition) const {
    if (name_.isEmpty()) return QDir::home().filePath("sound" + addition + ".wav");
    const QFileInfo file(name_);
    return file.dir().filePath(file.completeBaseName() + addition + '.' + file.suffix());
}

}  // namespace mavrin2::desktop
