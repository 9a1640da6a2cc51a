#pragma once

#include <filesystem>
#include <string>

#include "companions/dusoro/sound/backend.h"
#include "companions/dusoro/sound/reading_plan.h"

namespace mavrin2::dusoro {

// The modules around the sound libraries, each loaded when it is first needed and never unloaded:
// libraries of this size take milliseconds to load, and several leave threads' keys behind.
class BackendLoader {
public:
    // `folder` holds the modules.
    explicit BackendLoader(std::filesystem::path folder) : folder_(std::move(folder)) {}

    // Null when a module or its library is missing.
    const Decoder* DecoderFor(DecoderKind kind) const;
    const Encoder* SndfileEncoder() const { return Find<Encoder>("sndfile", kEncoderEntry); }
    const Encoder* Lame() const { return Find<Encoder>("lame", kEncoderEntry); }
    const ResamplerMaker* Soxr() const { return Find<ResamplerMaker>("soxr", kResamplerEntry); }

private:
    template <class Offered>
    const Offered* Find(const char* module, const char* entry) const {
        void* function = Symbol(module, entry);
        return function ? reinterpret_cast<const Offered* (*)()>(function)() : nullptr;
    }
    void* Symbol(const char* module, const char* entry) const;

    std::filesystem::path folder_;
};

}  // namespace mavrin2::dusoro
