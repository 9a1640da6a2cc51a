// Sends the control's window, in a container that is not ours, what a mouse does. After each
// message a line tells the events that it caused and the selection and view afterwards; pictures
// are written to a file one behind the other, 0x00RRGGBB row by row.
//
//   mouse_client WIDTH HEIGHT SOUND MESSAGES PICTURES

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

#include "automation/event_sink.h"
#include "control/interfaces/identifiers.h"
#include "control/interfaces/position.h"
#include "tests/support/mouse_messages.h"
#include "tests/windows/host/system_host.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2Position;
using platform::MouseAction;
using platform::MouseButton;
using platform::MouseEvent;

UINT MessageOf(const MouseEvent& event) {
    const bool left = event.Button == MouseButton::Left;
    switch (event.Action) {
        case MouseAction::Down:
            return left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN;
        case MouseAction::Up:
            return left ? WM_LBUTTONUP : WM_RBUTTONUP;
        case MouseAction::DoubleClick:
            return left ? WM_LBUTTONDBLCLK : WM_RBUTTONDBLCLK;
        case MouseAction::Wheel:
            return WM_MOUSEWHEEL;
        default:
            return WM_MOUSEMOVE;
    }
}

void Send(HWND window, const MouseEvent& event) {
    POINT at = {event.X, event.Y};
    if (event.Action == MouseAction::Wheel) ::ClientToScreen(window, &at);
    const int keys =
        ((event.Held & 1) != 0 ? MK_LBUTTON : 0) | ((event.Held & 2) != 0 ? MK_RBUTTON : 0) |
        ((event.Modifiers & 1) != 0 ? MK_SHIFT : 0) | ((event.Modifiers & 2) != 0 ? MK_CONTROL : 0);
    ::SendMessageW(window, MessageOf(event), MAKEWPARAM(keys, event.Turn), MAKELPARAM(at.x, at.y));
}

std::string TextOf(DISPID event, const automation::EventArguments& arguments) {
    std::string text = std::to_string(event);
    for (const VARIANT& argument : arguments.InOrder())
        text += "," + std::to_string(argument.vt == VT_I2 ? argument.iVal : argument.lVal);
    return text + " ";
}

std::string PlaceIn(IMavrin2Position& position) {
    std::string text = "|";
    for (const auto getter : {&IMavrin2Position::get_StartSelect, &IMavrin2Position::get_EndSelect,
                              &IMavrin2Position::get_StartView, &IMavrin2Position::get_EndView}) {
        LONG value = 0;
        Check((position.*getter)(&value), "a position");
        text += " " + std::to_string(value);
    }
    return text;
}

void Run(const SystemHost& host, const char* messages, const char* pictures) {
    automation::ComPtr<IMavrin2Position> position;
    Check(host.Control().get_Position(position.Put()), "Position");
    std::string heard;
    automation::EventConnection events;
    Check(events.Open(&host.Control(), interfaces::DIID_IMavrin2Events,
                      [&](DISPID event, const automation::EventArguments& arguments) {
                          heard += TextOf(event, arguments);
                          return S_OK;
                      }),
          "the events");
    std::ofstream out(pictures, std::ios::binary);
    for (const MouseMessage& message : ReadMouseMessages(messages)) {
        if (message.Compared) {
            const Picture picture = host.InWindow();
            out.write(reinterpret_cast<const char*>(picture.data()),
                      static_cast<std::streamsize>(picture.size() * sizeof(picture[0])));
            continue;
        }
        Send(host.Window(), message.Event);
        std::printf("%s: %s%s\n", message.Text.c_str(), std::exchange(heard, {}).c_str(),
                    PlaceIn(*position).c_str());
    }
    if (!out.flush()) throw std::runtime_error("the pictures cannot be written");
}

}  // namespace
}  // namespace mavrin2::tests

int main(int count, char** values) {
    if (count != 6) return 2;
    ::CoInitialize(nullptr);
    try {
        const mavrin2::tests::SystemHost host(std::atoi(values[1]), std::atoi(values[2]));
        host.Open(values[3]);
        mavrin2::tests::Run(host, values[4], values[5]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mouse_client: %s\n", error.what());
        return 1;
    }
    ::CoUninitialize();
    return 0;
}
