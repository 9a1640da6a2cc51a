#pragma once

namespace mavrin2::editor {

// Whatever goes on in the control.
class Activity {
public:
    virtual ~Activity() = default;

    // Cancels a long operation, ends playing and recording.
    virtual void Stop() = 0;
};

}  // namespace mavrin2::editor
