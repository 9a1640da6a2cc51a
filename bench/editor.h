#pragma once

#include <atomic>
#include <filesystem>

#include "automation/com_ptr.h"
#include "control/interfaces/mavrin2.h"

namespace mavrin2::bench {

// A control with a connected host, made through the component registry as any host makes one.
class Editor {
public:
    // Throws std::runtime_error when there is no control to be had.
    Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;
    ~Editor();

    // Each throws when the control does not do it.
    void Open(const std::filesystem::path& path);
    void Save(const std::filesystem::path& path);
    void SelectSecondInTheMiddle();
    void DeleteSelect();

    std::filesystem::path WorkFile() const;
    interfaces::IMavrin2& Control() const { return *control_; }
    interfaces::IMavrin2Position& Position() const { return *position_; }

private:
    class Sink;

    automation::ComPtr<interfaces::IMavrin2> control_;
    automation::ComPtr<interfaces::IMavrin2Position> position_;
    automation::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

}  // namespace mavrin2::bench
