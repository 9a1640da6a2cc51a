#include "companions/kestrin/operations/library_loader.h"

#include <string>

#include "companions/kestrin/kernels/backend.h"

namespace mavrin2::kestrin {
namespace {

template <class Made>
std::unique_ptr<Made> Required(std::unique_ptr<Made> made) {
    if (!made) throw LibraryMissing("the library refuses this size or ratio");
    return made;
}

}  // namespace

platform::Module::Function LibraryLoader::Entry(const char* name, const char* entry) const {
    const auto path = folder_ / (std::string("libmavrin2-kestrin-") + name + ".so");
    std::string reason;
    const auto module = modules_->Load(path, reason);
    const auto function = module ? module->Find(entry) : nullptr;
    if (!function) throw LibraryMissing(path.string() + ": " + reason);
    return function;
}

const FourierMaker& LibraryLoader::Transforms() const {
    return *reinterpret_cast<const FourierMaker* (*)()>(Entry("fourier", kFourierEntry))();
}

std::unique_ptr<Fourier> LibraryLoader::MakeFourier(std::size_t size) const {
    return Required(Transforms().Make(size));
}

std::unique_ptr<ComplexFourier> LibraryLoader::MakeComplexFourier(std::size_t size) const {
    return Required(Transforms().MakeComplex(size));
}

std::unique_ptr<RateConverter> LibraryLoader::MakeRateConverter(double ratio) const {
    const auto maker =
        reinterpret_cast<const RateConverterMaker* (*)()>(Entry("soxr", kRateConverterEntry));
    return Required(maker()->Make(ratio));
}

}  // namespace mavrin2::kestrin
