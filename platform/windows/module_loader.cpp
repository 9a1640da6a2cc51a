#include "platform/module_loader.h"

#include "platform/windows/last_error.h"

namespace mavrin2::platform {
namespace {

class WindowsModule final : public Module {
public:
    explicit WindowsModule(HMODULE module) : module_(module) {}

    Function Find(const char* name) const override {
        return reinterpret_cast<Function>(::GetProcAddress(module_, name));
    }

private:
    HMODULE module_;  // stays loaded
};

class WindowsModuleLoader final : public ModuleLoader {
public:
    std::unique_ptr<Module> Load(const std::filesystem::path& path, std::string& reason) override {
        ::SetLastError(ERROR_BAD_PATHNAME);
        // What the module needs is looked for beside it first.
        const HMODULE module = path.is_absolute() ? ::LoadLibraryExW(path.c_str(), nullptr,
                                                                     LOAD_WITH_ALTERED_SEARCH_PATH)
                                                  : nullptr;
        if (module) return std::make_unique<WindowsModule>(module);
        reason = path.string() + ": " + LastError().message();
        return nullptr;
    }
};

}  // namespace

std::shared_ptr<ModuleLoader> SystemModuleLoader() {
    return std::make_shared<WindowsModuleLoader>();
}

}  // namespace mavrin2::platform
