#include "control/server/construction_steps.h"

namespace mavrin2::server {
namespace {

using interfaces::IMavrin2Colors;
using interfaces::IMavrin2Scale;
using objects::CMavrin2Channel;
using objects::CMavrin2Colors;
using objects::CMavrin2FileInfo;
using objects::CMavrin2Position;
using objects::CMavrin2Scale;

struct Step {
    // What the user is told when it fails; none for a step that cannot fail.
    const char* Failure;
    HRESULT (*Run)(ControlParts& parts);
};

HRESULT MakeScaleX(ControlParts& parts) {
    parts.ScaleX = CMavrin2Scale::Make();
    parts.Style.ScaleXObject = parts.ScaleX.As<IMavrin2Scale>();
    return S_OK;
}

HRESULT MakeScaleY(ControlParts& parts) {
    parts.ScaleY = CMavrin2Scale::Make();
    parts.Style.ScaleYObject = parts.ScaleY.As<IMavrin2Scale>();
    return S_OK;
}

HRESULT MakeColors(ControlParts& parts) {
    parts.Colors = CMavrin2Colors::Make(parts.Environment.Ports.Colors.ButtonFace);
    parts.Style.ColorsObject = parts.Colors.As<IMavrin2Colors>();
    return S_OK;
}

HRESULT MakeFileInfo(ControlParts& parts) {
    parts.FileInfo = CMavrin2FileInfo::Make();
    return S_OK;
}

HRESULT MakePosition(ControlParts& parts) {
    parts.Position = CMavrin2Position::Make(parts.Environment.Ports.Files);
    return S_OK;
}

HRESULT MakeChannels(ControlParts& parts) {
    parts.Channels = CMavrin2Channel::Make();
    return S_OK;
}

HRESULT AttachObjects(ControlParts& parts) {
    parts.Editor = std::make_unique<DocumentEditor>(
        EditorDependencies{parts.Environment.Ports, parts.Temporary, parts.Position->History(),
                           parts.State, parts.Dusoro, parts.Events, parts.Style, parts.Container});
    DocumentEditor& editor = *parts.Editor;
    parts.ScaleX->Attach(editor.View, parts.Identity);
    parts.ScaleY->Attach(editor.View, parts.Identity);
    parts.Colors->Attach(editor.View, parts.Identity);
    parts.FileInfo->Attach(parts.State.Format, parts.Identity);
    parts.Position->Attach(editor.Positions, parts.Identity);
    parts.Channels->Attach(editor.Channels, parts.Identity);
    parts.Container.Attach(
        [&view = editor.View](platform::DrawingTarget& target, const view::Rectangle& bounds) {
            view.Paint(target, bounds);
        });
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
    parts.Editor->View.TakeSettings();
    parts.State.Channels.Recount(parts.State.Format.Channels);
    return S_OK;
}

HRESULT CleanTempFiles(ControlParts& parts) {
    parts.Temporary.CleanTempFiles();
    return S_OK;
}

constexpr Step kSteps[] = {
    // As users know these texts, the first one too.
    {"MavrinScale is not registered.", MakeScaleX},
    {"Mavrin2Scale is not registered.", MakeScaleY},
    {"Mavrin2Colors is not registered.", MakeColors},
    {"Mavrin2FileInfo is not registered.", MakeFileInfo},
    {"Mavrin2Position is not registered.", MakePosition},
    {"Mavrin2Channels is not registered.", MakeChannels},
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
