#include "hosts/desktop/canvas/editor_widget.h"

#include <QScreen>

#include "hosts/desktop/canvas/double_clicks.h"
#include "platform/offscreen_window.h"
#include "tests/desktop/screen.h"

namespace mavrin2::desktop {
namespace {

class EditorWidgets : public OnScreen {
protected:
    // A control with the same sound in a window without a screen.
    struct Reference {
        explicit Reference(QSize size)
            : Window(size.width(), size.height()),
              Hosted(Sound.Control(), Window, size.width(), size.height(), true) {}

        void Resize(QSize size) {
            Window.Resize(size.width(), size.height());
            Hosted.Resize(size.width(), size.height());
        }
        QImage Shown() {
            const platform::Pixels pixels = Window.Update();
            return QImage(reinterpret_cast<const uchar*>(pixels.Data), pixels.Width, pixels.Height,
                          qsizetype{4} * pixels.Stride, QImage::Format_RGB32)
                .copy();
        }

        Editor Sound;
        platform::OffscreenWindow Window;
        container::HostedControl Hosted;
    };

    static void Open(Editor& editor) {
        ASSERT_TRUE(editor.Perform([&] { editor.Members().Call("Open", kSound); }));
    }
};

TEST_F(EditorWidgets, ShowPixelForPixelWhatAWindowWithoutAScreenShows) {
    const QSize sizes[] = {{700, 300}, {321, 77}, {1200, 420}, {1, 1}, {640, 200}};
    Editor editor;
    EditorWidget widget(editor.Control());
    widget.resize(sizes[0]);
    widget.show();
    Reference reference(sizes[0]);
    EXPECT_EQ(Shown(widget), reference.Shown()) << "empty";
    Open(editor);
    Open(reference.Sound);
    for (const QSize size : sizes) {
        widget.resize(size);
        reference.Resize(size);
        EXPECT_EQ(Shown(widget), reference.Shown()) << size.width() << " x " << size.height();
    }
    for (Editor* const one : {&editor, &reference.Sound}) {
        one->Select(1000, 50000);
        one->ShowRange(500, 90000);
    }
    EXPECT_EQ(Shown(widget), reference.Shown()) << "selection";
    widget.hide();
    for (Editor* const one : {&editor, &reference.Sound})
        one->Members().Call("DeleteSelect");
    widget.show();
    EXPECT_EQ(Shown(widget), reference.Shown()) << "hidden meanwhile";
}

TEST_F(EditorWidgets, PassOnTheMouseAsAWindowWithoutAScreenDoes) {
    const QSize size(640, 240);
    Editor editor;
    EditorWidget widget(editor.Control());
    widget.resize(size);
    widget.show();
    Reference reference(size);
    Open(editor);
    Open(reference.Sound);
    Settle();
    reference.Shown();
    using platform::MouseAction;
    const struct {
        QEvent::Type Type;
        MouseAction Action;
        QPoint At;
    } steps[] = {{QEvent::MouseMove, MouseAction::Move, {100, 60}},
                 {QEvent::MouseButtonPress, MouseAction::Down, {100, 60}},
                 {QEvent::MouseMove, MouseAction::Move, {300, 90}},
                 {QEvent::MouseMove, MouseAction::Move, {-40, 300}},  // captured
                 {QEvent::MouseMove, MouseAction::Move, {260, 90}},
                 {QEvent::MouseButtonRelease, MouseAction::Up, {260, 90}}};
    bool down = false;
    for (const auto& step : steps) {
        down = step.Action == MouseAction::Down || (down && step.Action != MouseAction::Up);
        Mouse(widget, step.Type, step.At, down);
        platform::MouseEvent event;
        event.Action = step.Action;
        event.X = step.At.x();
        event.Y = step.At.y();
        event.Held = down ? static_cast<int>(platform::MouseButton::Left) : 0;
        if (step.Action != MouseAction::Move) event.Button = platform::MouseButton::Left;
        reference.Window.Send(event);
        EXPECT_EQ(Shown(widget), reference.Shown()) << step.At.x();
        EXPECT_EQ(editor.Position().End, reference.Sound.Position().End) << step.At.x();
    }
    EXPECT_TRUE(editor.Position().Selected);
}

TEST_F(EditorWidgets, LetTheirControlGoOnToAnotherWindow) {
    Editor editor;
    { const EditorWidget widget(editor.Control()); }
    EditorWidget next(editor.Control());
    EXPECT_THROW(EditorWidget(editor.Control()), binding::CallError);
    next.resize(300, 200);
    next.show();
    Open(editor);
    EXPECT_NE(Shown(next).pixel(150, 100), 0xFFD4D0C8u);
}

TEST_F(EditorWidgets, TellDoubleClicksByButtonTimeAndPlace) {
    using platform::MouseButton;
    struct Press {
        MouseButton Button;
        int X;
        std::uint64_t Time;
        bool Second;
    };
    const Press presses[] = {
        {MouseButton::Left, 10, 1000, false}, {MouseButton::Left, 14, 1500, true},
        {MouseButton::Left, 14, 1600, false}, {MouseButton::Left, 19, 1700, false},
        {MouseButton::Left, 15, 2200, true},  {MouseButton::Left, 15, 3000, false},
        {MouseButton::Left, 15, 3501, false}, {MouseButton::Right, 15, 3502, false},
        {MouseButton::Right, 15, 3503, true}};
    DoubleClicks clicks;
    for (const Press& press : presses)
        EXPECT_EQ(clicks.IsSecond(press.Button, press.X, 7, press.Time), press.Second)
            << press.Time;
}

}  // namespace
}  // namespace mavrin2::desktop
