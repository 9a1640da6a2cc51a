// The class table of the transform companion's module.

#include "automation/module.h"
#include "companions/kestrin/operations/library_loader.h"
#include "companions/kestrin/transform_companion.h"
#include "platform/module_path.h"

namespace mavrin2 {
namespace {

// The modules around the libraries are in the same folder as this one.
std::filesystem::path LibraryFolder() {
    return platform::PathOfModule(reinterpret_cast<const void*>(&automation::ThisModule))
        .parent_path();
}

HRESULT CreateTransformCompanion(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded([&] {
        return kestrin::TransformCompanion::Create(
            outer, iid, object,
            std::make_unique<kestrin::LibraryLoader>(platform::SystemModuleLoader(),
                                                     LibraryFolder()));
    });
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovKestrin, CreateTransformCompanion, "KovKestrin Class",
     "KovKestrin.Kestrin2.1", "KovKestrin.Kestrin2", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::KestrinLibrary};
    return contents;
}

}  // namespace mavrin2
