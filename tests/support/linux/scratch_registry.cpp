#include "tests/support/scratch_registry.h"

#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::tests {

struct ScratchRegistry::Place {
    ScratchFolder Folder;
    std::filesystem::path File = Folder.Path() / "components";
    EnvironmentVariable Variable{"MAVRIN2_REGISTRY", File.string()};
};

ScratchRegistry::ScratchRegistry() : place_(std::make_unique<Place>()) {}
ScratchRegistry::~ScratchRegistry() = default;

void ScratchRegistry::ForbidWriting() {
    // The superuser may write to any file, but not to a folder.
    std::filesystem::create_directory(place_->File);
}

}  // namespace mavrin2::tests
