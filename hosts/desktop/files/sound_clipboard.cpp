#include "hosts/desktop/files/sound_clipboard.h"

#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

#include "hosts/desktop/files/clip_folder.h"
#include "hosts/desktop/sound/text.h"

namespace mavrin2::desktop {
namespace {

// Names of the WAV format that programs use.
constexpr const char* kFormats[] = {"audio/wav", "audio/x-wav", "audio/vnd.wave"};

// A clip that other programs may read; it is read when one of them asks for it.
class ClipData final : public QMimeData {
public:
    explicit ClipData(std::unique_ptr<ClipFolder> folder) : folder_(std::move(folder)) {}

    QString File() const { return folder_->File(); }

    bool hasFormat(const QString& format) const override { return formats().contains(format); }
    QStringList formats() const override { return {kFormats[0], kFormats[1]}; }

protected:
    QVariant retrieveData(const QString& format, QMetaType) const override {
        QFile file(File());
        if (!hasFormat(format) || !file.open(QIODevice::ReadOnly)) return {};
        return file.readAll();
    }

private:
    std::unique_ptr<ClipFolder> folder_;
};

QString FormatIn(const QMimeData* data) {
    if (!data) return {};
    for (const char* format : kFormats)
        if (data->hasFormat(format)) return format;
    for (const QString& format : data->formats())
        if (format.startsWith("audio/")) return format;
    return {};
}

}  // namespace

SoundClipboard::SoundClipboard(Editor& editor)
    : editor_(editor), clipboard_(*QGuiApplication::clipboard()) {}

void SoundClipboard::Copy() {
    Offer("Copy");
}

void SoundClipboard::Cut() {
    Offer("Cut");
}

void SoundClipboard::Offer(const char* member) {
    auto folder = std::make_unique<ClipFolder>();
    const QString file = folder->File();
    editor_.EditKeepingZoom([&] {
        editor_.Members().Put("TempFileName", FileName(file));
        editor_.Members().Call(member);
    });
    // Also when cutting was stopped after the file was complete.
    if (QFile::exists(file)) clipboard_.setMimeData(new ClipData(std::move(folder)));
}

void SoundClipboard::Paste() {
    const QMimeData* const data = clipboard_.mimeData();
    if (const auto* const own = dynamic_cast<const ClipData*>(data)) {
        const std::string file = FileName(own->File());
        editor_.Edit([&] {
            editor_.Members().Put("TempFileName", file);
            editor_.Members().Call("Paste");
        });
        return;
    }
    const QString format = FormatIn(data);
    if (format.isEmpty()) return;
    const ClipFolder folder;
    QFile file(folder.File());
    const QByteArray sound = data->data(format);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(sound) == sound.size() && file.flush();
    file.close();
    if (!written) {
        emit editor_.Failed("The sound on the clipboard cannot be written to " + file.fileName() +
                            ": " + file.errorString());
        return;
    }
    editor_.Edit([&] { editor_.Members().Call("PasteFromFile", FileName(file.fileName())); });
}

bool SoundClipboard::HasSound() const {
    return !FormatIn(clipboard_.mimeData()).isEmpty();
}

}  // namespace mavrin2::desktop
