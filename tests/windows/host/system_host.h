#pragma once

#include <cstdint>
#include <vector>

#include "automation/com_ptr.h"
#include "control/interfaces/mavrin2.h"

namespace mavrin2::tests {

// 0x00RRGGBB, row by row.
using Picture = std::vector<std::uint32_t>;

// Throws std::runtime_error with `what` for a status that is a failure.
void Check(HRESULT status, const char* what);

// The control without its scales, whose letters differ from system to system, in a window that the
// system's own template library fills with it. Everything throws std::runtime_error.
class SystemHost {
public:
    SystemHost(int width, int height);
    SystemHost(const SystemHost&) = delete;
    SystemHost& operator=(const SystemHost&) = delete;
    ~SystemHost();

    interfaces::IMavrin2& Control() const { return *control_; }
    void Open(const char* sound) const;
    // The control's own window.
    HWND Window() const;
    // What that window shows.
    Picture InWindow() const;
    // Drawn in units of a tenth of a pixel, off the corner, to see that a host's units are
    // respected.
    Picture Drawn() const;

private:
    int width_;
    int height_;
    HWND window_;
    automation::ComPtr<interfaces::IMavrin2> control_;
};

}  // namespace mavrin2::tests
