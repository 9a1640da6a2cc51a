#pragma once

#include <string>

namespace mavrin2::platform {

// Shows the user errors that no caller can receive. Texts are UTF-8. Returns after the answer,
// or at once where no answer is possible.
class ErrorDialog {
public:
    virtual ~ErrorDialog() = default;

    // A message box with an error icon and one OK button, owned by the window that is active now.
    virtual void Show(const std::string& caption, const std::string& text) = 0;
};

}  // namespace mavrin2::platform
