#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/control_window.h"

namespace mavrin2::tests {

struct MouseMessage {
    std::string Text;
    platform::MouseEvent Event;
    bool Compared = false;  // what is shown, instead of an event
};

// A line of mouse_messages.txt. `held` is the buttons that are held, before and afterwards.
inline MouseMessage ParseMouseMessage(const std::string& line, int& held) {
    using platform::MouseAction;
    using platform::MouseButton;
    static const std::pair<const char*, MouseAction> actions[] = {
        {"move", MouseAction::Move},
        {"down", MouseAction::Down},
        {"up", MouseAction::Up},
        {"double", MouseAction::DoubleClick},
        {"wheel", MouseAction::Wheel}};
    MouseMessage message{line, {}, line == "picture"};
    if (message.Compared) return message;
    std::istringstream words(line);
    std::string action;
    std::string button;
    std::string rest;
    words >> action >> button >> message.Event.X >> message.Event.Y;
    if (!words) throw std::runtime_error("no mouse message: " + line);
    words >> rest;
    for (const auto& [name, value] : actions)
        if (action == name) message.Event.Action = value;
    if (button != "-")
        message.Event.Button = button == "left" ? MouseButton::Left : MouseButton::Right;
    if (message.Event.Action == MouseAction::Wheel)
        message.Event.Turn = std::stoi(rest);
    else
        message.Event.Modifiers = (rest.find("shift") != std::string::npos ? 1 : 0) |
                                  (rest.find("ctrl") != std::string::npos ? 2 : 0);
    const int bit = static_cast<int>(message.Event.Button);
    held = message.Event.Action == MouseAction::Up ? held & ~bit : held | bit;
    message.Event.Held = held;
    return message;
}

// Throws std::runtime_error.
inline std::vector<MouseMessage> ReadMouseMessages(const std::filesystem::path& file) {
    std::ifstream lines(file);
    if (!lines) throw std::runtime_error("cannot read " + file.string());
    std::vector<MouseMessage> messages;
    int held = 0;
    for (std::string line; std::getline(lines, line);)
        if (!line.empty() && line[0] != '#') messages.push_back(ParseMouseMessage(line, held));
    return messages;
}

}  // namespace mavrin2::tests
