#include "hosts/desktop/canvas/editor_widget.h"

#include <QApplication>
#include <QMouseEvent>
#include <QThread>
#include <QToolTip>
#include <random>

#include "hosts/desktop/canvas/double_clicks.h"
#include "platform/offscreen_window.h"
#include "tests/desktop/screen.h"
#include "tests/support/event_recorder.h"
#include "tests/support/mouse_messages.h"
#include "tests/support/wanted_count.h"

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

// What a widget gets for a message. Presses are far apart in time, but for those of a double click.
class WidgetMouse {
public:
    explicit WidgetMouse(QWidget& widget) : widget_(widget) {}

    void Send(const platform::MouseEvent& event) {
        using platform::MouseAction;
        const QPointF at(event.X, event.Y);
        const QPointF onScreen = widget_.mapToGlobal(at);
        Qt::MouseButtons held;
        held.setFlag(Qt::LeftButton, event.Held & 1);
        held.setFlag(Qt::RightButton, event.Held & 2);
        Qt::KeyboardModifiers keys;
        keys.setFlag(Qt::ShiftModifier, event.Modifiers & 1);
        keys.setFlag(Qt::ControlModifier, event.Modifiers & 2);
        if (event.Action == MouseAction::Wheel) {
            // As a touchpad does it.
            for (int i = 0; i < 2; ++i)
                OnScreen::Wheel(widget_, at, event.Turn / 2, held);
            return;
        }
        static constexpr QEvent::Type kTypes[] = {QEvent::MouseMove, QEvent::MouseButtonPress,
                                                  QEvent::MouseButtonRelease,
                                                  QEvent::MouseButtonDblClick};
        Qt::MouseButton button = Qt::NoButton;
        if (event.Button == platform::MouseButton::Left) button = Qt::LeftButton;
        if (event.Button == platform::MouseButton::Right) button = Qt::RightButton;
        time_ += event.Action == MouseAction::Down ? 1000 : 10;
        QMouseEvent mouse(kTypes[static_cast<int>(event.Action)], at, onScreen, button, held, keys);
        mouse.setTimestamp(time_);
        QApplication::sendEvent(&widget_, &mouse);
    }

private:
    QWidget& widget_;
    quint64 time_ = 1000;
};

TEST_F(EditorWidgets, AnswerTheMouseAsAWindowWithoutAScreenDoes) {
    const QSize size(705, 300);
    Editor editor;
    EditorWidget widget(editor.Control());
    widget.resize(size);
    widget.show();
    Reference reference(size);
    const auto recorder = [](Editor& one) {
        auto events = automation::MakeCounted<tests::EventRecorder>();
        for (const char* scale : {"ScaleX", "ScaleY"})
            one.Part(scale).Put("Visible", 0);
        Open(one);
        events->Connect(&one.Control());
        return events;
    };
    const auto events = recorder(editor);
    const auto expected = recorder(reference.Sound);
    EXPECT_EQ(Shown(widget), reference.Shown());
    WidgetMouse mouse(widget);
    for (const auto& message : tests::ReadMouseMessages(MAVRIN2_MOUSE_MESSAGES)) {
        SCOPED_TRACE(message.Text);
        if (message.Compared) {
            EXPECT_EQ(Shown(widget), reference.Shown());
            continue;
        }
        mouse.Send(message.Event);
        reference.Window.Send(message.Event);
        EXPECT_EQ(events->Take(), expected->Take());
        const SoundPosition at = editor.Position();
        const SoundPosition other = reference.Sound.Position();
        EXPECT_EQ(std::tie(at.Start, at.End, at.Selected, at.ViewStart, at.ViewEnd),
                  std::tie(other.Start, other.End, other.Selected, other.ViewStart, other.ViewEnd));
        const bool image = reference.Window.Pointer() >= platform::PointerShape::Custom;
        EXPECT_EQ(widget.cursor().shape() == Qt::BitmapCursor, image);
    }
}

TEST_F(EditorWidgets, ShowPointersAndTips) {
    Editor editor;
    EditorWidget widget(editor.Control());
    widget.resize(705, 300);
    widget.show();
    Open(editor);
    Shown(widget);
    WidgetMouse mouse(widget);
    const auto moveTo = [&](int x, int y) {
        platform::MouseEvent event;
        event.X = x;
        event.Y = y;
        mouse.Send(event);
        return widget.cursor();
    };
    EXPECT_EQ(moveTo(300, 150).shape(), Qt::ArrowCursor);
    const QCursor edge = moveTo(300, 12);
    ASSERT_EQ(edge.shape(), Qt::BitmapCursor);
    const QImage image = edge.pixmap().toImage();
    EXPECT_TRUE(image.rect().contains(edge.hotSpot()));
    EXPECT_EQ(qAlpha(image.pixel(image.width() - 1, image.height() - 1)), 0);
    EXPECT_EQ(qAlpha(image.pixel(edge.hotSpot())), 255);
    editor.Members().Put("MousePointer", 11);
    EXPECT_EQ(moveTo(1, 1).shape(), Qt::WaitCursor);

    editor.Part("Markers").Call("Insert", 0, 0, "Where it begins", "");
    moveTo(3, 12);
    const auto waitForTip = [](bool visible) {
        for (int i = 0; i < 100 && QToolTip::isVisible() != visible; ++i) {
            QThread::msleep(50);
            Settle();
        }
        return QToolTip::text();
    };
    EXPECT_EQ(waitForTip(true), "<qt>Where it begins</qt>");
    moveTo(300, 150);
    EXPECT_EQ(waitForTip(false), "");
}

// What users and their programs do in any order.
TEST_F(EditorWidgets, LiveThroughRandomMessages) {
    std::mt19937 random(11);
    const auto upto = [&](int count) {
        return std::uniform_int_distribution(0, count - 1)(random);
    };
    auto editor = std::make_unique<Editor>();
    auto widget = std::make_unique<EditorWidget>(editor->Control());
    widget->show();
    Open(*editor);
    WidgetMouse mouse(*widget);
    int held = 0;
    for (int i = 0; i < tests::WantedCount("MAVRIN2_MOUSE_MESSAGES", 1000); ++i) {
        platform::MouseEvent event;
        event.Action = static_cast<platform::MouseAction>(upto(5));
        event.X = upto(5) == 0 ? upto(2) * 65535 - 32768 : upto(widget->width() + 1);
        event.Y = upto(2) == 0 ? upto(20) : upto(widget->height() + 1);
        if (event.Action == platform::MouseAction::Wheel)
            event.Turn = upto(5) * 60 - 120;
        else if (event.Action != platform::MouseAction::Move)
            event.Button = static_cast<platform::MouseButton>(1 + upto(2));
        const int bit = static_cast<int>(event.Button);
        held = event.Action == platform::MouseAction::Up ? held & ~bit : held | bit;
        event.Held = held;
        mouse.Send(event);
        if (i % 50 == 0) widget->resize(upto(3) == 0 ? upto(3000) : upto(20), upto(400));
        if (i % 90 == 0) widget->setVisible(!widget->isVisible());
        if (i % 20 == 0) Settle();
        const SoundPosition at = editor->Position();
        ASSERT_TRUE(0 <= at.Start && at.Start <= at.End && at.End <= at.Total) << i;
        ASSERT_TRUE(0 <= at.ViewStart && at.ViewEnd <= at.Total) << i;
    }
    widget.reset();
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
