#include "companions/backends/linked_backends.h"
#include "companions/kestrin/kernels/libraries.h"

MAVRIN2_BACKEND_ENTRY(kestrin, fourier, FourierMaker);
MAVRIN2_BACKEND_ENTRY(kestrin, soxr, RateConverterMaker);

namespace mavrin2::backends {
namespace {

const LinkedBackends::Entry kEntries[] = {
    MAVRIN2_LINKED_BACKEND(kestrin, fourier, FourierMaker),
    MAVRIN2_LINKED_BACKEND(kestrin, soxr, RateConverterMaker),
};

}  // namespace

std::shared_ptr<const Backends> OfThisModule() {
    return std::make_shared<LinkedBackends>(kEntries);
}

}  // namespace mavrin2::backends
