#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace mavrin2::platform {

// A loaded module: a shared library of this process. It stays loaded when this object goes, since
// objects and threads of it may be alive. Any thread.
class Module {
public:
    virtual ~Module() = default;

    // An exported function, to be cast to its type; null if none has that name.
    using Function = void (*)();
    virtual Function Find(const char* name) const = 0;
};

// Loads modules, those that they need included. Any thread. Loading one again yields the same one.
class ModuleLoader {
public:
    virtual ~ModuleLoader() = default;

    // `path` is absolute. Null if the module is missing, is no module or lacks one that it needs;
    // `reason` then says which, for users.
    virtual std::unique_ptr<Module> Load(const std::filesystem::path& path,
                                         std::string& reason) = 0;
};

// The adapter of the running system. Never null.
std::shared_ptr<ModuleLoader> SystemModuleLoader();

}  // namespace mavrin2::platform
