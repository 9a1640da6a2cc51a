#pragma once

#include <string>
#include <vector>

#include "platform/error_dialog.h"

namespace mavrin2::platform {

// Keeps the messages that a user would have seen, in order.
class RecordingErrorDialog final : public ErrorDialog {
public:
    struct Message {
        std::string Caption;
        std::string Text;

        bool operator==(const Message&) const = default;
    };

    void Show(const std::string& caption, const std::string& text) override {
        messages_.push_back({caption, text});
    }

    const std::vector<Message>& Messages() const { return messages_; }

private:
    std::vector<Message> messages_;
};

}  // namespace mavrin2::platform
