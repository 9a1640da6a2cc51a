#include "companions/kestrin/operations/library_loader.h"

#include <string>

#include "companions/kestrin/kernels/backend.h"

namespace mavrin2::kestrin {

platform::Module::Function LibraryLoader::Entry(const char* name, const char* entry) const {
    const auto path = folder_ / (std::string("libmavrin2-kestrin-") + name + ".so");
    std::string reason;
    const auto module = modules_->Load(path, reason);
    const auto function = module ? module->Find(entry) : nullptr;
    if (!function) throw LibraryMissing(path.string() + ": " + reason);
    return function;
}

std::unique_ptr<Fourier> LibraryLoader::MakeFourier(std::size_t size) const {
    const auto maker = reinterpret_cast<const FourierMaker* (*)()>(Entry("fourier", kFourierEntry));
    auto made = maker()->Make(size);
    if (!made) throw LibraryMissing("no Fourier transform of this size");
    return made;
}

std::unique_ptr<RateConverter> LibraryLoader::MakeRateConverter(double ratio) const {
    const auto maker =
        reinterpret_cast<const RateConverterMaker* (*)()>(Entry("soxr", kRateConverterEntry));
    auto made = maker()->Make(ratio);
    if (!made) throw LibraryMissing("no conversion by this ratio");
    return made;
}

}  // namespace mavrin2::kestrin
