// The class table of the information companion's module.

#include "automation/module.h"
#include "companions/ontiva/information_companion.h"
#include "companions/ontiva/libraries/loaded_libraries.h"
#include "platform/module_path.h"
#include "platform/ports.h"

namespace mavrin2 {
namespace {

// The modules around the libraries are beside this one.
std::filesystem::path LibraryFolder() {
    return platform::PathOfModule(reinterpret_cast<const void*>(&automation::ThisModule))
        .parent_path();
}

HRESULT CreateInformationCompanion(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded([&] {
        return ontiva::InformationCompanion::Create(
            outer, iid, object,
            ontiva::InfoFiles(platform::SystemPorts().Files, platform::SystemReplacementFiles(),
                              std::make_unique<ontiva::LoadedLibraries>(
                                  platform::SystemModuleLoader(), LibraryFolder())));
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
