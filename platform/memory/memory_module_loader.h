#pragma once

#include <map>
#include <string>

#include "platform/module_loader.h"

namespace mavrin2::platform {

// Modules that are parts of the test itself: functions by path and name.
class MemoryModuleLoader final : public ModuleLoader {
public:
    void Add(const std::filesystem::path& path, const std::string& name,
             Module::Function function) {
        modules_[path][name] = function;
    }

    std::unique_ptr<Module> Load(const std::filesystem::path& path, std::string& reason) override {
        const auto found = modules_.find(path);
        if (found != modules_.end()) return std::make_unique<MemoryModule>(found->second);
        reason = path.string() + ": no such module";
        return nullptr;
    }

private:
    using Functions = std::map<std::string, Module::Function>;

    class MemoryModule final : public Module {
    public:
        explicit MemoryModule(Functions functions) : functions_(std::move(functions)) {}
        Function Find(const char* name) const override {
            const auto found = functions_.find(name);
            return found == functions_.end() ? nullptr : found->second;
        }

    private:
        Functions functions_;
    };

    std::map<std::filesystem::path, Functions> modules_;
};

}  // namespace mavrin2::platform
