#include "hosts/script/lua/interrupted_save.h"

#include <system_error>

#include "platform/ports.h"

namespace mavrin2::script {

namespace fs = std::filesystem;

bool InterruptedSave::PutAside() {
    if (interrupted_ || file_.empty()) return true;
    std::error_code error;
    fs::path target = fs::weakly_canonical(file_, error);
    if (error) return false;
    if (fs::exists(target, error)) {
        const auto files = platform::SystemPorts().Files;
        fs::path aside = files->CreateUniqueFile(target.parent_path(), ".mavrin2-old-");
        if (aside.empty()) return false;
        fs::rename(target, aside, error);
        if (error) {
            files->Remove(aside);
            return false;
        }
        aside_ = std::move(aside);
    }
    file_ = std::move(target);
    interrupted_ = true;
    return true;
}

InterruptedSave::~InterruptedSave() {
    if (!interrupted_) return;
    std::error_code ignored;
    if (aside_.empty())
        fs::remove(file_, ignored);
    else
        fs::rename(aside_, file_, ignored);
}

}  // namespace mavrin2::script
