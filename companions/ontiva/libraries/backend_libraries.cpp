#include "companions/ontiva/libraries/backend_libraries.h"

namespace mavrin2::ontiva {
namespace {

template <class Library>
const Library& Find(const backends::Backends& backends, const char* backend, const char* offer) {
    std::string reason;
    const auto* library = backends.Find<Library>(backend, offer, reason);
    if (!library) throw MissingLibrary("cannot load a library: " + reason);
    return *library;
}

}  // namespace

const TagLibrary& BackendLibraries::Tags() const {
    return Find<TagLibrary>(*backends_, "taglib", "TagLibrary");
}

const FlacLibrary& BackendLibraries::Flac() const {
    return Find<FlacLibrary>(*backends_, "flac", "FlacLibrary");
}

const ContainerLibrary& BackendLibraries::Containers() const {
    return Find<ContainerLibrary>(*backends_, "avformat", "ContainerLibrary");
}

}  // namespace mavrin2::ontiva
