#pragma once

#include <QMainWindow>

#include "hosts/desktop/canvas/editor_widget.h"
#include "hosts/desktop/files/document_file.h"
#include "hosts/desktop/files/sound_clipboard.h"
#include "hosts/desktop/sound/navigation.h"
#include "hosts/desktop/window/menus.h"
#include "hosts/desktop/window/operation_progress.h"
#include "hosts/desktop/window/status_line.h"
#include "hosts/desktop/window/view_scroll_bar.h"

namespace mavrin2::desktop {

// A window with one sound. It puts the parts together, and closes.
class EditorWindow final : public QMainWindow {
public:
    // Throws CallError when the control cannot be created.
    EditorWindow();
    ~EditorWindow() override;

    // Opens a file; failures are shown to the user.
    void Open(const QString& name) { file_.Open(name); }

    Editor& Sound() { return editor_; }
    DocumentFile& File() { return file_; }
    EditorWidget& Picture() { return *picture_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void AddMenus();
    void Connect();
    void Update();
    void ShowTitle();
    void ShowFailure(const QString& reason);

    Editor editor_;
    Navigation navigation_;
    DocumentFile file_;
    SoundClipboard clipboard_;
    Menus menus_;
    StatusLine status_;
    EditorWidget* picture_;
    ViewScrollBar* scrollBar_;
    OperationProgress progress_;
    QTimer update_;
    bool closing_ = false;  // as soon as the running operation has ended
};

}  // namespace mavrin2::desktop
