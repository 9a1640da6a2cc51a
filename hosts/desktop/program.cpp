#include "hosts/desktop/program.h"

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string_view>
#include <vector>

#include "hosts/binding/find_components.h"
#include "hosts/desktop/canvas/posting_notifier.h"
#include "hosts/desktop/window/editor_window.h"

namespace mavrin2::desktop {
namespace {

constexpr const char* kHelp = R"(Usage: mavrin2-editor [FILE...]

Edits sound files, each in a window.

  --help       show this text
  --version    show the version

Further options are those of Qt, such as -platform and -style.
)";

constexpr int kFailure = 1;

// Without a screen the toolkit would end the program with several lines on plugins, and a core.
void ExplainMissingScreen(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    std::fputs(
        "mavrin2-editor: no screen to show a window on; set DISPLAY or WAYLAND_DISPLAY,\n"
        "or use mavrin2, which needs no screen\n",
        stderr);
    std::_Exit(kFailure);
}

bool Answer(int count, char** values) {
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = values[i];
        if (argument == "--help" || argument == "-h") {
            std::fputs(kHelp, stdout);
            return true;
        }
        if (argument == "--version") {
            std::puts("mavrin2-editor " MAVRIN2_VERSION);
            return true;
        }
    }
    return false;
}

std::unique_ptr<EditorWindow> ShowWindow(const QString& file) {
    auto window = std::make_unique<EditorWindow>();
    window->resize(window->sizeHint());
    window->show();
    // Opening shows its progress, for which the window has to be on the screen.
    if (!file.isEmpty())
        QTimer::singleShot(0, window.get(), [opened = window.get(), file] { opened->Open(file); });
    return window;
}

}  // namespace

int RunProgram(int count, char** values) {
    if (Answer(count, values)) return 0;
    binding::FindComponents();
    const auto before = qInstallMessageHandler(&ExplainMissingScreen);
    const QApplication application(count, values);
    qInstallMessageHandler(before);
    QApplication::setOrganizationName("Mavrin2");
    QApplication::setApplicationName("mavrin2-editor");
    QApplication::setApplicationVersion(MAVRIN2_VERSION);
    QApplication::setDesktopFileName("mavrin2-editor");
    QApplication::setWindowIcon(QIcon::fromTheme("mavrin2-editor"));
    try {
        const PostingNotifier postings;
        std::vector<std::unique_ptr<EditorWindow>> windows;
        QStringList files = QApplication::arguments().mid(1);
        if (files.isEmpty()) files += QString();
        for (const QString& file : files)
            windows.push_back(ShowWindow(file));
        return QApplication::exec();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mavrin2-editor: %s\n", error.what());
        return kFailure;
    }
}

}  // namespace mavrin2::desktop
