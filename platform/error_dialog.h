#pragma once

#include <string>

namespace mavrin2::platform {

// Tells the user what no caller can be told. Texts are UTF-8. Returns when the user has answered,
// or at once where nobody can.
class ErrorDialog {
public:
    virtual ~ErrorDialog() = default;

    // A message box with an error icon and one OK button, owned by the window that is active now.
    virtual void Show(const std::string& caption, const std::string& text) = 0;
};

}  // namespace mavrin2::platform
