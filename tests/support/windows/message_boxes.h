#pragma once

#include <string>
#include <vector>

#include "platform/automation.h"

namespace mavrin2::tests {

// Notes the message boxes of this thread and answers each at once. One such object at a time.
class MessageBoxes {
public:
    MessageBoxes();
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;

    // Each as its caption and then, each behind " | ", kind and text of what is in it.
    const std::vector<std::wstring>& Seen() const;

private:
    HHOOK hook_;
};

}  // namespace mavrin2::tests
