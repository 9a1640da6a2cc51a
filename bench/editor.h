#pragma once

#include <filesystem>

#include "automation/event_sink.h"
#include "control/interfaces/mavrin2.h"

namespace mavrin2::bench {

// A control with a connected host, made through the component registry as any host makes one.
class Editor {
public:
    // Throws std::runtime_error when there is no control to be had.
    Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    // Each throws when the control does not do it.
    void Open(const std::filesystem::path& path);
    void Save(const std::filesystem::path& path);
    void SelectSecondInTheMiddle();
    void SelectAll();
    void DeleteSelect();

    std::filesystem::path WorkFile() const;
    interfaces::IMavrin2& Control() const { return *control_; }
    interfaces::IMavrin2Position& Position() const { return *position_; }

private:
    automation::ComPtr<interfaces::IMavrin2> control_;
    automation::ComPtr<interfaces::IMavrin2Position> position_;
    automation::EventConnection events_;
};

}  // namespace mavrin2::bench
