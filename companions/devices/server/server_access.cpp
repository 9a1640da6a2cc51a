#include "companions/devices/server/server_access.h"

namespace mavrin2::devices {

SoundServer* ServerAccess::Reach(Deadline deadline) {
    if (!loaded_) {
        loaded_ = true;
        server_ = loader_();
    }
    if (!server_) return &null_;
    switch (server_->Connect(deadline)) {
        case Connection::Ready:
            return server_.get();
        case Connection::Absent:
            return &null_;
        case Connection::Unresponsive:
            break;
    }
    return nullptr;
}

}  // namespace mavrin2::devices
