#include "companions/kestrin/operations/library_loader.h"

#include <dlfcn.h>

#include <string>

#include "companions/kestrin/kernels/backend.h"

namespace mavrin2::kestrin {

// A second call finds the module by its name and loads nothing.
void* LibraryLoader::Symbol(const char* module, const char* entry) const {
    const auto path = folder_ / (std::string("libmavrin2-kestrin-") + module + ".so");
    void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE);
    void* symbol = handle ? dlsym(handle, entry) : nullptr;
    if (!symbol) throw LibraryMissing(path.string());
    return symbol;
}

std::unique_ptr<Fourier> LibraryLoader::MakeFourier(std::size_t size) const {
    const auto maker =
        reinterpret_cast<const FourierMaker* (*)()>(Symbol("fourier", kFourierEntry));
    auto made = maker()->Make(size);
    if (!made) throw LibraryMissing("no Fourier transform of this size");
    return made;
}

std::unique_ptr<RateConverter> LibraryLoader::MakeRateConverter(double ratio) const {
    const auto maker =
        reinterpret_cast<const RateConverterMaker* (*)()>(Symbol("soxr", kRateConverterEntry));
    auto made = maker()->Make(ratio);
    if (!made) throw LibraryMissing("no conversion by this ratio");
    return made;
}

}  // namespace mavrin2::kestrin
