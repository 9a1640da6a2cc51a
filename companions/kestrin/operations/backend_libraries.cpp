#include "companions/kestrin/operations/backend_libraries.h"

namespace mavrin2::kestrin {
namespace {

template <class Maker>
const Maker& Find(const backends::Backends& backends, const char* backend, const char* offer) {
    std::string reason;
    const auto* maker = backends.Find<Maker>(backend, offer, reason);
    if (!maker) throw LibraryMissing(reason);
    return *maker;
}

template <class Made>
std::unique_ptr<Made> Required(std::unique_ptr<Made> made) {
    if (!made) throw LibraryMissing("the library refuses this size or ratio");
    return made;
}

}  // namespace

const FourierMaker& BackendLibraries::Transforms() const {
    return Find<FourierMaker>(*backends_, "fourier", "FourierMaker");
}

std::unique_ptr<Fourier> BackendLibraries::MakeFourier(std::size_t size) const {
    return Required(Transforms().Make(size));
}

std::unique_ptr<ComplexFourier> BackendLibraries::MakeComplexFourier(std::size_t size) const {
    return Required(Transforms().MakeComplex(size));
}

std::unique_ptr<RateConverter> BackendLibraries::MakeRateConverter(double ratio) const {
    return Required(Find<RateConverterMaker>(*backends_, "soxr", "RateConverterMaker").Make(ratio));
}

}  // namespace mavrin2::kestrin
