// The class table of the CD grabber's module.

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "automation/module.h"
#include "companions/backends/backends.h"
#include "companions/pindle/grabber_companion.h"

namespace mavrin2 {
namespace {

const pindle::DiscLibrary* Library() {
    std::string reason;
    return backends::OfThisModule()->Find<pindle::DiscLibrary>("cdio", "DiscLibrary", reason);
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
