#include "control/server/construction_steps.h"

namespace mavrin2::server {
namespace {

using objects::CMavrin2FileInfo;
using objects::CMavrin2Position;

struct Step {
    // What the user is told when it fails; none for a step that cannot fail.
    const char* Failure;
    HRESULT (*Run)(ControlParts& parts);
};

HRESULT MakeFileInfo(ControlParts& parts) {
    parts.FileInfo = CMavrin2FileInfo::Make();
    return S_OK;
}

HRESULT MakePosition(ControlParts& parts) {
    parts.Position = CMavrin2Position::Make(parts.Environment.Ports.Files);
    return S_OK;
}

HRESULT AttachObjects(ControlParts& parts) {
    parts.Editor = std::make_unique<DocumentEditor>(*parts.Environment.Ports.Files, parts.Temporary,
                                                    parts.Position->History(), parts.State,
                                                    parts.Dusoro, parts.Events);
    parts.FileInfo->Attach(parts.State.Format, parts.Identity);
    parts.Position->Attach(parts.Editor->Positions, parts.Identity);
    return S_OK;
}

HRESULT CreateDusoro(ControlParts& parts) {
    automation::ComPtr<contracts::IDusoro2> companion;
    const HRESULT status = parts.Environment.CreateCompanion(
        contracts::CLSID_KovDusoro2, contracts::IID_IDusoro2, companion.PutVoid());
    if (FAILED(status)) return status;
    parts.Dusoro.Attach(std::move(companion));
    return S_OK;
}

HRESULT SendInitialSettings(ControlParts& parts) {
    constexpr std::int32_t kVoxFrequency = 8000;
    parts.Dusoro.SetFormatVOX(kVoxFrequency);
    return S_OK;
}

HRESULT CleanTempFiles(ControlParts& parts) {
    parts.Temporary.CleanTempFiles();
    return S_OK;
}

constexpr Step kSteps[] = {
    {"Mavrin2FileInfo is not registered.", MakeFileInfo},
    {"Mavrin2Position is not registered.", MakePosition},
    {nullptr, AttachObjects},
    {"KovDusoro2 is not registered.", CreateDusoro},
    {nullptr, SendInitialSettings},
    {nullptr, CleanTempFiles},
};

}  // namespace

HRESULT RunConstructionSteps(ControlParts& parts) {
    for (const Step& step : kSteps) {
        const HRESULT status = automation::Guarded([&] { return step.Run(parts); });
        if (SUCCEEDED(status)) continue;
        if (step.Failure) parts.Environment.Ports.Errors->Show("KovMavrin", step.Failure);
        return status;
    }
    return S_OK;
}

}  // namespace mavrin2::server
