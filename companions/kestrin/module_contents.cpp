// The class table of the transform companion's module.

#include "automation/module.h"
#include "companions/kestrin/operations/backend_libraries.h"
#include "companions/kestrin/transform_companion.h"

namespace mavrin2 {
namespace {

HRESULT CreateTransformCompanion(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded([&] {
        return kestrin::TransformCompanion::Create(
            outer, iid, object,
            std::make_unique<kestrin::BackendLibraries>(backends::OfThisModule()));
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
