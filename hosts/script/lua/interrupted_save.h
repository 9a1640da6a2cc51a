#pragma once

#include <filesystem>
#include <string>

namespace mavrin2::script {

// The file that a call of a script saves. When the control is stopped in the middle of it, it gives
// the name to the part that it has written; a script that is interrupted leaves the name as it was.
class InterruptedSave {
public:
    // `file` as the script gives it; empty if the call saves none.
    explicit InterruptedSave(const std::string& file) : file_(file) {}
    InterruptedSave(const InterruptedSave&) = delete;
    InterruptedSave& operator=(const InterruptedSave&) = delete;
    // To be destroyed when the call has returned.
    ~InterruptedSave();

    // Before the control is stopped: puts an older file aside. False if it would be lost.
    bool PutAside();

private:
    std::filesystem::path file_;
    std::filesystem::path aside_;  // the older file; empty without one
    bool interrupted_ = false;
};

}  // namespace mavrin2::script
