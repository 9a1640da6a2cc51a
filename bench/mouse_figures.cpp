#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/text.h"
#include "bench/editor.h"
#include "bench/figures.h"
#include "bench/measure.h"
#include "control/interfaces/scale.h"
#include "hosts/container/hosted_control.h"
#include "platform/offscreen_window.h"

namespace mavrin2::bench {
namespace {

using platform::MouseAction;
using platform::MouseEvent;

constexpr int kWidth = 1920;
constexpr int kHeight = 400;
constexpr int kHour = 3600 * 44100;

// An editor in a window without a screen, and the mouse in it.
class WindowEditor {
public:
    explicit WindowEditor(const Folder& data)
        : window_(kWidth, kHeight), hosted_(editor_.Control(), window_, kWidth, kHeight, true) {
        // Without it, the middle of the sound is in the middle of the window.
        automation::ComPtr<interfaces::IMavrin2Scale> scale;
        Control().get_ScaleY(scale.Put());
        scale->put_Visible(0);
        editor_.Open(data / "m60.wav");
        window_.Update();
    }

    interfaces::IMavrin2& Control() const { return editor_.Control(); }
    void Send(MouseAction action, int x, int y) {
        MouseEvent event;
        event.Action = action;
        event.X = x;
        event.Y = y;
        if (action != MouseAction::Move) event.Button = platform::MouseButton::Left;
        down_ = action == MouseAction::Down || (down_ && action == MouseAction::Move);
        event.Held = down_ ? 1 : 0;
        window_.Send(event);
    }
    // The milliseconds of each move of a drag from `x` to the columns that `next` gives.
    std::vector<double> Drag(int x, int y, int moves, const std::function<int(int)>& next) {
        Send(MouseAction::Down, x, y);
        window_.Update();
        std::vector<double> taken;
        for (int i = 0; i < moves; ++i)
            taken.push_back(1000 * SecondsOf([&] {
                                Send(MouseAction::Move, next(i), y);
                                window_.Update();
                            }));
        Send(MouseAction::Up, next(moves - 1), y);
        return taken;
    }

private:
    Editor editor_;
    platform::OffscreenWindow window_;
    container::HostedControl hosted_;
    bool down_ = false;
};

double Percentile(std::vector<double> values, double part) {
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

// To and fro, by more than what a drag ignores.
int ToAndFro(int i) {
    return 200 + (i * 7) % 1500;
}

void PrintSelecting(WindowEditor& editor) {
    const std::vector<double> moves = editor.Drag(100, 200, 1000, ToAndFro);
    PrintValue("Selecting, from a move to its pixels", Median(moves), "ms", 4);
    PrintValue("99 of 100 of them", Percentile(moves, 0.99), "ms", 10);
}

// The slowest move at any length of the view that scrolls.
double SlowestScroll(WindowEditor& editor, int y) {
    double slowest = 0;
    for (int frames = kHour / 2; frames > 300; frames /= 6) {
        editor.Control().Zoom(kHour / 2 - frames / 2, kHour / 2 + frames / 2);
        const auto moves = editor.Drag(960, y, 50, [](int i) { return 960 + (i % 10) * 5; });
        slowest = std::max(slowest, Percentile(moves, 0.98));
        editor.Control().ZoomFull();
    }
    return slowest;
}

void PrintScrolling(WindowEditor& editor, interfaces::TypeViewConstants view,
                    const std::string& name) {
    constexpr int kThumb = 5;
    constexpr int kTimeScale = kHeight - 5;
    editor.Control().put_TypeView(view);
    PrintValue("Scrolling a " + name + " by the thumb, slowest view", SlowestScroll(editor, kThumb),
               "ms", 16);
    PrintValue("By the time scale", SlowestScroll(editor, kTimeScale), "ms", 16);
}

// Nothing listens here.
void PrintPlainMoves(const Folder& data) {
    struct Silent {
        Silent() : Window(kWidth, kHeight) {
            CoCreateInstance(interfaces::CLSID_Mavrin2, nullptr, CLSCTX_INPROC_SERVER,
                             interfaces::IID_IMavrin2, Control.PutVoid());
            Hosted =
                std::make_unique<container::HostedControl>(*Control, Window, kWidth, kHeight, true);
        }
        automation::ComPtr<interfaces::IMavrin2> Control;
        platform::OffscreenWindow Window;
        std::unique_ptr<container::HostedControl> Hosted;
    } silent;
    const automation::Bstr name(automation::OleStringView(automation::ToOle(data / "m10.wav")));
    if (FAILED(silent.Control->Open(name.Get(), interfaces::FormatTypeConstants::DEFAULT)))
        throw std::runtime_error("the sound could not be opened");
    silent.Window.Update();
    constexpr int kMoves = 10'000;
    const double seconds = SecondsOf([&] {
        for (int i = 0; i < kMoves; ++i) {
            MouseEvent event;
            event.X = ToAndFro(i);
            event.Y = 200;
            silent.Window.Send(event);
        }
    });
    PrintValue("A move without a drag or a listener", seconds / kMoves * 1e6, "µs", 20);
}

}  // namespace

void PrintMouseFigures(const Folder& data) {
    WindowEditor editor(data);
    PrintSelecting(editor);
    using interfaces::TypeViewConstants;
    PrintScrolling(editor, TypeViewConstants::WAVEFORM, "waveform");
    PrintScrolling(editor, TypeViewConstants::SPECTRAL, "spectrum");
    PrintPlainMoves(data);
}

}  // namespace mavrin2::bench
