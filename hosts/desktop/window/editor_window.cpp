#include "hosts/desktop/window/editor_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QTimer>
#include <QVBoxLayout>

#include "hosts/desktop/effects/effects_menu.h"
#include "hosts/desktop/files/recent_files.h"
#include "hosts/desktop/window/channels_menu.h"

namespace mavrin2::desktop {
namespace {

constexpr qint32 kHoursAndMinutes = 2;  // the unit of the time scale

}  // namespace

EditorWindow::EditorWindow()
    : navigation_(editor_),
      file_(editor_, *this),
      clipboard_(editor_),
      menus_(*menuBar(), {editor_, navigation_, file_, clipboard_}),
      status_(*statusBar(), editor_),
      picture_(new EditorWidget(editor_.Control())),
      scrollBar_(new ViewScrollBar(editor_)),
      progress_(editor_, *this) {
    auto* const center = new QWidget;
    auto* const layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(picture_, 1);
    layout->addWidget(scrollBar_);
    setCentralWidget(center);
    setAcceptDrops(true);
    AddMenus();
    if (editor_.Has("ScaleX.Type")) editor_.Part("ScaleX").Put("Type", kHoursAndMinutes);
    Connect();
    picture_->setFocus();
    Update();
    ShowTitle();
}

EditorWindow::~EditorWindow() {
    // The control leaves its widget before it is released.
    editor_.disconnect();
    delete centralWidget();
}

void EditorWindow::AddMenus() {
    QMenu& file = menus_.Menu("&File");
    const auto open = [this](const QString& name) { Open(name); };
    file.insertMenu(file.actions().value(2), new RecentFiles(open, this));
    file.addSeparator();
    QAction* const close = file.addAction("&Close", this, &QWidget::close);
    close->setShortcut(QKeySequence("Ctrl+W"));
    QAction* const quit = file.addAction("&Quit", qApp, &QApplication::closeAllWindows);
    quit->setShortcut(QKeySequence("Ctrl+Q"));
    if (editor_.Has("Channels")) menus_.Menu("&View").addMenu(new ChannelsMenu(editor_, this));
    if (editor_.Has("Transform")) {
        auto* const effects = new EffectsMenu(editor_, this);
        menuBar()->addMenu(effects);
        connect(effects, &QMenu::aboutToShow, effects, [this, effects] {
            const bool idle = editor_.IsOpen() && !editor_.IsBusy();
            for (QAction* const action : effects->actions())
                action->setEnabled(idle);
        });
    }
}

void EditorWindow::Connect() {
    // After the event: inside of one the sound may be between two states.
    update_.setSingleShot(true);
    connect(&update_, &QTimer::timeout, this, &EditorWindow::Update);
    connect(&editor_, &Editor::Changed, &update_, qOverload<>(&QTimer::start));
    connect(&editor_, &Editor::Failed, this, &EditorWindow::ShowFailure);
    connect(&file_, &DocumentFile::Changed, this, &EditorWindow::ShowTitle);
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &EditorWindow::Update);
    connect(&editor_, &Editor::Ended, this, [this] {
        if (closing_) QTimer::singleShot(0, this, &QWidget::close);
        closing_ = false;
    });
}

void EditorWindow::Update() {
    // During an operation only its progress is shown.
    if (editor_.IsBusy()) return;
    menus_.Update();
    status_.Update();
    scrollBar_->Update();
}

void EditorWindow::ShowTitle() {
    const QString name = file_.Name().isEmpty() ? "New sound" : QFileInfo(file_.Name()).fileName();
    setWindowTitle(editor_.IsOpen() ? name + "[*] - Mavrin2" : QString("Mavrin2"));
    setWindowModified(file_.IsModified());
}

void EditorWindow::ShowFailure(const QString& reason) {
    QMessageBox::warning(this, "Mavrin2", reason);
}

void EditorWindow::closeEvent(QCloseEvent* event) {
    if (editor_.IsBusy()) {
        // Called from inside the operation, which has to end first.
        closing_ = true;
        editor_.Stop();
        event->ignore();
    } else {
        event->setAccepted(file_.MayLoseChanges());
    }
}

void EditorWindow::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!urls.isEmpty() && urls.front().isLocalFile()) event->acceptProposedAction();
}

void EditorWindow::dropEvent(QDropEvent* event) {
    const QString name = event->mimeData()->urls().value(0).toLocalFile();
    event->acceptProposedAction();
    // The program that the file comes from waits for the end of the drop.
    QTimer::singleShot(0, this, [this, name] { Open(name); });
}

}  // namespace mavrin2::desktop
