// The class table of the information companion's module.

#include "automation/module.h"
#include "companions/ontiva/information_companion.h"
#include "companions/ontiva/libraries/backend_libraries.h"
#include "platform/ports.h"

namespace mavrin2 {
namespace {

HRESULT CreateInformationCompanion(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded([&] {
        return ontiva::InformationCompanion::Create(
            outer, iid, object,
            ontiva::InfoFiles(
                platform::SystemPorts().Files, platform::SystemReplacementFiles(),
                std::make_unique<ontiva::BackendLibraries>(backends::OfThisModule())));
    });
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovOntiva, CreateInformationCompanion, "KovOntiva Class",
     "KovOntiva.Ontiva.1", "KovOntiva.Ontiva", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::OntivaLibrary};
    return contents;
}

}  // namespace mavrin2
