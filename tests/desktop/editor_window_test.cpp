#include "hosts/desktop/window/editor_window.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QProgressDialog>
#include <QStatusBar>
#include <QThread>
#include <algorithm>

#include "hosts/desktop/files/recent_files.h"
#include "hosts/desktop/window/action_table.h"
#include "tests/desktop/screen.h"

namespace mavrin2::desktop {
namespace {

class EditorWindows : public OnScreen {
protected:
    EditorWindows() {
        window_.Open(kSound);
        QObject::connect(&window_.Sound(), &Editor::Failed,
                         [](const QString& reason) { ADD_FAILURE() << reason.toStdString(); });
        window_.show();
        Settle();
    }

    void Trigger(const QString& text) {
        Settle();
        Entry(window_, text).trigger();
    }
    SoundPosition At() { return window_.Sound().Position(); }

    EditorWindow window_;
};

TEST_F(EditorWindows, HaveEntriesThatDoWhatTheyName) {
    const qint32 all = Frames(window_);
    ASSERT_GT(all, 0);
    EXPECT_FALSE(Entry(window_, "Undo").isEnabled());
    EXPECT_FALSE(Entry(window_, "Delete").isEnabled());

    for (int i = 0; i < 10; ++i)
        Trigger("Forward");
    EXPECT_EQ(At().Start, all / 100 * 10);
    for (int i = 0; i < 20; ++i)
        Trigger("Extend Forward");
    EXPECT_EQ(At().End - At().Start, all / 100 * 20);
    Trigger("Extend to the Beginning");  // turns round at the place where it began
    EXPECT_EQ(At().Start, 0);
    EXPECT_EQ(At().End, all / 100 * 10);
    Trigger("Extend Forward");
    EXPECT_EQ(At().Start, all / 100);

    Trigger("Selection");
    EXPECT_EQ(At().ViewStart, At().Start);
    const qint32 view = At().ViewEnd - At().ViewStart;
    Trigger("Closer");
    EXPECT_NEAR(At().ViewEnd - At().ViewStart, view / 2.0, 2);
    Trigger("Wider");
    EXPECT_NEAR(At().ViewEnd - At().ViewStart, view, 2);
    Trigger("Closer");
    Wheel(window_.Picture(), {100, 100}, -120);
    Settle();
    const auto labels = window_.statusBar()->findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(
        labels, [](const QLabel* label) { return label->text().startsWith("Selection"); }));
    Trigger("Whole Sound");
    EXPECT_EQ(At().ViewEnd, all);

    const qint32 selected = At().End - At().Start;
    Trigger("Delete");
    EXPECT_EQ(Frames(window_), all - selected);
    Trigger("Undo");
    EXPECT_EQ(Frames(window_), all);
    Trigger("Redo");
    EXPECT_EQ(Frames(window_), all - selected);
    Trigger("Undo");
    window_.Sound().ShowRange(20000, 30000);
    window_.Sound().Select(15000, 40000);
    Settle();
    Trigger("Delete");  // with all that is visible
    EXPECT_EQ(At().ViewEnd - At().ViewStart, 10000);
    Trigger("Spectrum");
    EXPECT_EQ(window_.Sound().Members().Number("TypeView"), 1);
    Trigger("Select All");
    EXPECT_EQ(At().End - At().Start, Frames(window_));
    Trigger("End");
    EXPECT_FALSE(At().Selected);
    EXPECT_EQ(At().Start, Frames(window_));
}

TEST_F(EditorWindows, HaveAKeyForEveryEntryAndNoneTwice) {
    QStringList keys;
    for (const ActionRow& row : ActionTable()) {
        if (!row.Text) continue;
        EXPECT_NE(std::string_view(row.Keys), "") << row.Text;
        for (const QString& key : QString(row.Keys).split(' ')) {
            const QString known = QKeySequence(key).toString(QKeySequence::PortableText);
            EXPECT_FALSE(known.isEmpty() || keys.contains(known)) << key.toStdString();
            keys += known;
        }
    }
}

TEST_F(EditorWindows, ExchangeSoundByTheClipboard) {
    const qint32 all = Frames(window_);
    EditorWindow other;
    other.Open(kSound);
    constexpr qint32 kCrossfade = 441;  // the first 10 ms overlap
    window_.Sound().Select(0, 1000);
    Settle();
    Trigger("Cut");
    EXPECT_EQ(Frames(window_), all - 1000);
    const QMimeData* const offered = QApplication::clipboard()->mimeData();
    const QByteArray wave = offered->data("audio/x-wav");
    EXPECT_EQ(wave, offered->data("audio/wav"));
    EXPECT_TRUE(wave.startsWith("RIFF"));
    EXPECT_GT(wave.size(), 4000);

    Entry(other, "Paste").trigger();
    EXPECT_EQ(Frames(other), all + 1000 - kCrossfade);

    auto* const foreign = new QMimeData;
    foreign->setData("audio/x-wav", wave);
    QApplication::clipboard()->setMimeData(foreign);
    Trigger("Paste");
    EXPECT_EQ(Frames(window_), all - kCrossfade);
    QApplication::clipboard()->setText("no sound");
    Settle();
    EXPECT_FALSE(Entry(window_, "Paste").isEnabled());
    QApplication::clipboard()->clear();
}

TEST_F(EditorWindows, KnowWhetherChangesAreSaved) {
    EXPECT_FALSE(window_.isWindowModified());
    window_.Sound().Select(0, 1000);
    Settle();
    Trigger("Delete");
    EXPECT_TRUE(window_.isWindowModified());
    Trigger("Undo");
    EXPECT_FALSE(window_.isWindowModified());
    Trigger("Redo");
    AnswerWith("Cancel");
    EXPECT_FALSE(window_.close());
    const QString copy = folder_.filePath("copy.wav");
    EXPECT_TRUE(window_.File().SaveTo(copy));
    EXPECT_FALSE(window_.isWindowModified());
    EXPECT_EQ(RecentFiles::Names().value(0), copy);
    Trigger("Undo");
    EXPECT_TRUE(window_.isWindowModified());

    // Another program writes the file.
    QFile file(copy);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::currentDateTime().addSecs(60), QFile::FileModificationTime);
    file.close();
    AnswerWith("Cancel");
    EXPECT_FALSE(window_.File().Save());
    AnswerWith("Discard");
    EXPECT_TRUE(window_.close());
}

TEST_F(EditorWindows, CloseDuringASaveThatLeavesTheOldFile) {
    const QString copy = folder_.filePath("copy.flac");
    ASSERT_TRUE(QFile::copy(kSound, copy));
    const qint64 size = QFileInfo(copy).size();
    window_.Sound().Select(1000, 2000);
    window_.Sound().Perform([&] { window_.Sound().Members().Call("DeleteSelect"); });
    window_.Sound().Members().Put("FileBufferSize", 100);
    bool asked = false;
    QObject::connect(&window_.Sound(), &Editor::Progress, [&] {
        if (std::exchange(asked, true)) return;
        EXPECT_FALSE(window_.close());
        EXPECT_TRUE(window_.isVisible());
    });
    EXPECT_FALSE(window_.File().SaveTo(copy));
    EXPECT_TRUE(asked);
    AnswerWith("Discard");
    Settle();
    EXPECT_FALSE(window_.isVisible());
    EXPECT_EQ(QFileInfo(copy).size(), size);
    EXPECT_EQ(QDir(folder_.path()).entryList({"copy*"}, QDir::Files).size(), 1);
}

TEST_F(EditorWindows, ShowTheProgressOfALongOperationUntilItEnds) {
    bool visible = false;
    const auto* const progress = window_.findChild<QProgressDialog*>();
    window_.Sound().Members().Put("FileBufferSize", 100);
    QObject::connect(&window_.Sound(), &Editor::Progress, [&](int percent) {
        if (percent < 50) QThread::msleep(100);
        visible = visible || progress->isVisible();
    });
    window_.Sound().Select(0, 1000);
    EXPECT_TRUE(window_.Sound().Edit([&] { window_.Sound().Members().Call("DeleteSelect"); }));
    EXPECT_TRUE(visible);
    Settle();
    EXPECT_FALSE(progress->isVisible());
}

TEST_F(EditorWindows, CloseDuringADrag) {
    auto window = std::make_unique<EditorWindow>();
    window->Open(kSound);
    window->show();
    Settle();
    Mouse(window->Picture(), QEvent::MouseButtonPress, {100, 100}, true);
    Mouse(window->Picture(), QEvent::MouseMove, {200, 100}, true);
    EXPECT_TRUE(window->close());
    Mouse(window->Picture(), QEvent::MouseMove, {300, 100}, true);
    Mouse(window->Picture(), QEvent::MouseButtonRelease, {300, 100}, false);
    window.reset();
}

}  // namespace
}  // namespace mavrin2::desktop
