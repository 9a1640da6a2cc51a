#include "platform/module_loader.h"

#include <dlfcn.h>

namespace mavrin2::platform {
namespace {

class LinuxModule final : public Module {
public:
    explicit LinuxModule(void* handle) : handle_(handle) {}

    Function Find(const char* name) const override {
        return reinterpret_cast<Function>(::dlsym(handle_, name));
    }

private:
    void* handle_;
};

class LinuxModuleLoader final : public ModuleLoader {
public:
    std::unique_ptr<Module> Load(const std::filesystem::path& path, std::string& reason) override {
        // A name without a slash would be looked for elsewhere.
        void* const handle = path.is_absolute()
                                 ? ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)
                                 : nullptr;
        if (handle) return std::make_unique<LinuxModule>(handle);
        const char* const error = path.is_absolute() ? ::dlerror() : nullptr;
        reason = error ? error : path.string() + ": not an absolute path";
        return nullptr;
    }
};

}  // namespace

std::shared_ptr<ModuleLoader> SystemModuleLoader() {
    return std::make_shared<LinuxModuleLoader>();
}

}  // namespace mavrin2::platform
