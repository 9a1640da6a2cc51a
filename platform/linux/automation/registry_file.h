#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "platform/linux/automation/registry_text.h"
#include "platform/linux/automation/status.h"

namespace mavrin2::platform::automation {

// One registry file. Any thread, any number of processes: it is replaced as a whole, and whoever
// changes it holds the lock file beside it meanwhile.
class RegistryFile {
public:
    explicit RegistryFile(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& Path() const { return path_; }

    // The present content; null when there is no file, or none that can be read.
    std::shared_ptr<const RegistryText> Read() const;

    // Hands the present content to `change` and writes what it has become; also when `change`
    // returns a failure, which is then the result.
    HRESULT Update(const std::function<HRESULT(RegistryText&)>& change) const;

private:
    std::filesystem::path path_;
};

}  // namespace mavrin2::platform::automation
