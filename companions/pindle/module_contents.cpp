// The class table of the CD grabber's module.

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "automation/module.h"
#include "companions/pindle/disc/loaded_library.h"
#include "companions/pindle/grabber_companion.h"
#include "platform/module_path.h"

namespace mavrin2 {
namespace {

// The module around the library is beside this one.
const pindle::DiscLibrary* Library() {
    const auto folder =
        platform::PathOfModule(reinterpret_cast<const void*>(&automation::ThisModule))
            .parent_path();
    return pindle::LoadDiscLibrary(*platform::SystemModuleLoader(), folder);
}

// Where there is no such table, discs are not mounted.
pindle::DriveSources Sources(const pindle::DiscLibrary& library) {
    pindle::DriveSources sources{library.Devices(), {}, {}};
    std::stringstream mounts;
    mounts << std::ifstream("/proc/self/mounts").rdbuf();
    sources.Mounts = mounts.str();
    if (const char* images = std::getenv("MAVRIN2_CD_IMAGES")) sources.Images = images;
    return sources;
}

HRESULT CreateGrabberCompanion(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded([&] {
        return pindle::GrabberCompanion::Create(outer, iid, object,
                                                pindle::GrabberServices{Library, Sources});
    });
}

constexpr automation::ClassEntry kClasses[] = {
    {contracts::CLSID_KovPindle, CreateGrabberCompanion, "KovPindle Class", "KovPindle.PindleCD2.2",
     "KovPindle.PindleCD2", "Apartment"},
};

}  // namespace

const automation::ModuleContents& automation::ThisModule() {
    static const ModuleContents contents{kClasses, &contracts::PindleLibrary};
    return contents;
}

}  // namespace mavrin2
