#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "companions/dusoro/sound/backend.h"
#include "companions/dusoro/sound/reading_plan.h"
#include "platform/module_loader.h"

namespace mavrin2::dusoro {

// The modules around the sound libraries, each loaded when it is first needed, since libraries of
// this size take milliseconds to load.
class BackendLoader {
public:
    // `folder`, an absolute path, holds the modules.
    BackendLoader(std::shared_ptr<platform::ModuleLoader> modules, std::filesystem::path folder)
        : modules_(std::move(modules)), folder_(std::move(folder)) {}

    // Null when a module or its library is missing.
    const Decoder* DecoderFor(DecoderKind kind) const;
    const Encoder* EncoderOf(EncoderKind kind) const;
    const ResamplerMaker* Soxr() const { return Find<ResamplerMaker>("soxr", kResamplerEntry); }

private:
    template <class Offered>
    const Offered* Find(const char* module, const char* entry) const {
        const auto function = Entry(module, entry);
        return function ? reinterpret_cast<const Offered* (*)()>(function)() : nullptr;
    }
    platform::Module::Function Entry(const char* name, const char* entry) const;

    std::shared_ptr<platform::ModuleLoader> modules_;
    std::filesystem::path folder_;
};

}  // namespace mavrin2::dusoro
