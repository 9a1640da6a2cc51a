#include "control/server/control_parts.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "automation/guarded.h"

namespace mavrin2::server {
namespace {

using automation::ComPtr;

using Act = void (*)(ControlParts& parts);

// A row of the table of parts.
struct Part {
    const char* Failure;  // the message to the user when it cannot be made
    int Released;         // its place in the order of the control's end
    HRESULT (*Make)(ControlParts& parts);
    Act Release;
    // Of a sub-object only, to and from the part of the editor that it shows.
    Act Attach = nullptr;
    Act Detach = nullptr;
    // For the class object of a sub-object's class.
    const automation::InterfaceDescription& (*Interface)() = nullptr;
    Creator Create = nullptr;
};

template <class Object>
constexpr bool kNeedsPorts = std::is_constructible_v<Object, IUnknown*, const platform::Ports&>;

template <class Object>
constexpr bool kNeedsCompanions =
    std::is_constructible_v<Object, IUnknown*, const objects::CompanionFactory&>;

template <class Object>
HRESULT CreateObject(IUnknown* outer, REFIID iid, void** object) {
    return automation::Guarded([&] {
        if constexpr (kNeedsPorts<Object>)
            return Object::Create(outer, iid, object, platform::SystemPorts());
        else if constexpr (kNeedsCompanions<Object>)
            return Object::Create(outer, iid, object, SystemEnvironment().CreateCompanion);
        else
            return Object::Create(outer, iid, object);
    });
}

template <class Object>
Object ObjectIn(ComPtr<Object> ControlParts::*);
template <class Wrapper, class Interface>
Interface InterfaceTaken(void (Wrapper::*)(ComPtr<Interface>));

// A sub-object, kept in the member that `Place` names.
template <auto Place>
constexpr Part SubObject(const char* failure, int released, Act attach) {
    using Object = decltype(ObjectIn(Place));
    return {failure,
            released,
            [](ControlParts& parts) {
                if constexpr (kNeedsPorts<Object>)
                    parts.*Place = Object::Make(parts.Environment.Ports);
                else
                    parts.*Place = Object::Make();
                return S_OK;
            },
            [](ControlParts& parts) { (parts.*Place).Reset(); },
            attach,
            [](ControlParts& parts) {
                if (parts.*Place) (parts.*Place)->Detach();
            },
            &automation::DescriptionOf<typename Object::PrimaryInterface>,
            &CreateObject<Object>};
}

// A new instance of a companion, for `wrapper` to call.
template <class Wrapper>
HRESULT NewCompanion(const ControlParts& parts, const CLSID& id, Wrapper& wrapper) {
    using Interface = decltype(InterfaceTaken(&Wrapper::Attach));
    ComPtr<Interface> companion;
    const HRESULT status =
        parts.Environment.CreateCompanion(id, automation::IidOf<Interface>(), companion.PutVoid());
    if (SUCCEEDED(status)) wrapper.Attach(std::move(companion));
    return status;
}

// A companion, called through the member that `Place` names.
template <auto Place, const CLSID& Id>
constexpr Part Companion(const char* failure, int released) {
    return {failure, released,
            [](ControlParts& parts) { return NewCompanion(parts, Id, parts.*Place); },
            [](ControlParts& parts) { (parts.*Place).Release(); }};
}

// The object that shows tags to hosts keeps the companion that has them.
constexpr Part kOntiva{"KovOntiva is not registered.", 0,
                       [](ControlParts& parts) {
                           return NewCompanion(parts, contracts::CLSID_KovOntiva,
                                               parts.FileInfo->Extra().Companion);
                       },
                       [](ControlParts& parts) {
                           if (parts.FileInfo) parts.FileInfo->Extra().Companion.Release();
                       }};

// The settings of the MP3 encoder in use, which hosts replace by objects of the same class.
constexpr Part kLameEnc{"MavrinLameEnc is not registered.",
                        12,
                        [](ControlParts& parts) {
                            parts.LameEnc =
                                objects::CMavrin2LameEnc::Make(parts.Environment.CreateCompanion)
                                    .As<interfaces::IMavrin2LameEnc>();
                            return S_OK;
                        },
                        [](ControlParts& parts) { parts.LameEnc.Reset(); },
                        nullptr,
                        nullptr,
                        &automation::DescriptionOf<interfaces::IMavrin2LameEnc>,
                        &CreateObject<objects::CMavrin2LameEnc>};

// In the order of being made.
constexpr Part kParts[] = {
    // Users know the text of the first row as it is.
    SubObject<&ControlParts::ScaleX>("MavrinScale is not registered.", 1,
                                     [](ControlParts& parts) {
                                         parts.ScaleX->Attach(parts.Editor->View, parts.Identity);
                                         parts.Style.ScaleXObject =
                                             parts.ScaleX.As<interfaces::IMavrin2Scale>();
                                     }),
    SubObject<&ControlParts::ScaleY>("Mavrin2Scale is not registered.", 2,
                                     [](ControlParts& parts) {
                                         parts.ScaleY->Attach(parts.Editor->View, parts.Identity);
                                         parts.Style.ScaleYObject =
                                             parts.ScaleY.As<interfaces::IMavrin2Scale>();
                                     }),
    SubObject<&ControlParts::Colors>("Mavrin2Colors is not registered.", 3,
                                     [](ControlParts& parts) {
                                         parts.Colors->Attach(parts.Editor->Colors, parts.Identity);
                                         parts.Style.ColorsObject =
                                             parts.Colors.As<interfaces::IMavrin2Colors>();
                                     }),
    SubObject<&ControlParts::DeviceInput>("Mavrin2Device is not registered.", 6, nullptr),
    SubObject<&ControlParts::DeviceOutput>("Mavrin2Device is not registered.", 8, nullptr),
    SubObject<&ControlParts::FileInfo>(
        "Mavrin2FileInfo is not registered.", 4,
        [](ControlParts& parts) { parts.FileInfo->Attach(parts.State.Format, parts.Identity); }),
    SubObject<&ControlParts::Position>("Mavrin2Position is not registered.", 5,
                                       [](ControlParts& parts) {
                                           parts.Position->Attach(parts.Editor->Positions,
                                                                  parts.Identity);
                                       }),
    SubObject<&ControlParts::Channels>("Mavrin2Channels is not registered.", 10,
                                       [](ControlParts& parts) {
                                           parts.Channels->Attach(parts.Editor->Channels,
                                                                  parts.Identity);
                                       }),
    SubObject<&ControlParts::Markers>(
        "Mavrin2Markers is not registered.", 9,
        [](ControlParts& parts) { parts.Markers->Attach(parts.Editor->Markers, parts.Identity); }),
    SubObject<&ControlParts::Recorder>(
        "Mavrin2Recorder is not registered.", 7,
        [](ControlParts& parts) { parts.Recorder->Attach(parts.Rimbal, parts.Identity); }),
    SubObject<&ControlParts::FileFormat>(
        "Mavrin2FileFormat is not registered.", 13,
        [](ControlParts& parts) { parts.FileFormat->Attach(parts.Output, parts.Identity); }),
    SubObject<&ControlParts::Transform>("Mavrin2Transform is not registered.", 11,
                                        [](ControlParts& parts) {
                                            parts.Transform->Attach(parts.Editor->Transforms,
                                                                    parts.Identity);
                                        }),
    kOntiva,
    Companion<&ControlParts::Velto, contracts::CLSID_KovVelto>("KovVelto is not registered.", 16),
    Companion<&ControlParts::Rimbal, contracts::CLSID_KovRimbal2>("KovRimbal2 is not registered.",
                                                                  17),
    Companion<&ControlParts::Dusoro, contracts::CLSID_KovDusoro2>("KovDusoro2 is not registered.",
                                                                  15),
    kLameEnc,
    Companion<&ControlParts::Kestrin, contracts::CLSID_KovKestrin>("KovKestrin is not registered.",
                                                                   14),
    Companion<&ControlParts::Pindle, contracts::CLSID_KovPindle>("KovPindle is not registered.",
                                                                 18),
};

// The rows in the order of the control's end.
constexpr auto kReleased = [] {
    std::array<const Part*, std::size(kParts)> order{};
    std::ranges::transform(kParts, order.begin(), [](const Part& part) { return &part; });
    std::ranges::sort(order, {}, &Part::Released);
    return order;
}();

}  // namespace

ControlEnvironment SystemEnvironment() {
    return {platform::SystemPorts(), [](REFCLSID id, REFIID iid, void** object) {
                return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER,
                                        iid, object);
            }};
}

ControlParts::ControlParts(ControlEnvironment environment, IUnknown* identity,
                           const automation::ConnectionPoint& hosts)
    : Environment(std::move(environment)),
      Identity(identity),
      Events(hosts),
      Temporary(Environment.Ports, State.Settings),
      Container(identity),
      Velto(identity),
      Rimbal(identity),
      Kestrin(Events),
      Pindle([this](std::int32_t percent) { ShowTrackProgress(percent); }) {}

HRESULT ControlParts::Construct() {
    return automation::Guarded([&]() -> HRESULT {
        if (const HRESULT status = MakeParts(); FAILED(status)) return status;
        Wire();
        SendInitialSettings();
        Temporary.CleanTempFiles();
        return S_OK;
    });
}

HRESULT ControlParts::MakeParts() {
    for (const Part& part : kParts) {
        const HRESULT status = automation::Guarded([&] { return part.Make(*this); });
        if (SUCCEEDED(status)) continue;
        Environment.Ports.Errors->Show("KovMavrin", part.Failure);
        return status;
    }
    return S_OK;
}

void ControlParts::Wire() {
    Editor = std::make_unique<DocumentEditor>(EditorDependencies{
        Environment.Ports, Temporary, Position->History(), State, Dusoro, FileInfo->Extra(), Velto,
        DeviceOutput->Buffering(), Rimbal, DeviceInput->Buffering(), Kestrin, Pindle,
        [this](editor::SoundFileCompanion& companion) {
            return SUCCEEDED(NewCompanion(*this, contracts::CLSID_KovDusoro2, companion));
        },
        Events, Events, Events, Style, Container});
    Velto.Listen(&Editor->Transport);
    Rimbal.Listen(&Editor->Transport);
    for (const Part& part : kParts)
        if (part.Attach) part.Attach(*this);
    Container.Attach(
        [&view = Editor->View](platform::DrawingTarget& target, const view::Rectangle& bounds,
                               const view::RowRange& rows) { view.Paint(target, bounds, rows); },
        {[&mouse = Editor->Mouse](const platform::MouseEvent& event) { mouse.Handle(event); },
         [&mouse = Editor->Mouse] { mouse.CaptureLost(); }});
}

void ControlParts::SendInitialSettings() {
    constexpr std::int32_t kVoxFrequency = 8000;
    Dusoro.SetFormatVOX(kVoxFrequency);
    Kestrin.SetSmoothing(false);
    Kestrin.SetSmoothTime(State.Settings.SmoothTime);
    constexpr std::int16_t kTimerInterval = 50;
    Velto.SetTimerInterval(kTimerInterval);
    Rimbal.SetTimerInterval(kTimerInterval);
    Velto.SetExtraLatency(0);
    Rimbal.DisableFilters();
    using Kind = objects::DeviceRoute::Kind;
    DeviceOutput->InitDevice(Kind::Output, {Velto, Rimbal}, Identity);
    DeviceInput->InitDevice(Kind::Input, {Velto, Rimbal}, Identity);
    FileInfo->Extra().Companion.SetInfoSwitch(1);
    Editor->View.TakeSettings();
    State.Channels.Recount(State.Format.Channels);
}

void ControlParts::ShowTrackProgress(std::int32_t percent) {
    if (!Editor) return;
    const ComPtr<IUnknown> held(Identity);
    Editor->ShowProgress(percent);
    Events.BlockOperation(percent);
}

void ControlParts::Teardown() {
    Container.Detach();
    Velto.Disconnect();
    Rimbal.Disconnect();
    Kestrin.Disconnect();
    Pindle.Disconnect();
    if (Position) Position->History().FreeChain();
    // All are detached before any is released.
    for (const Part* part : kReleased)
        if (part->Detach) part->Detach(*this);
    Velto.Listen(nullptr);
    Rimbal.Listen(nullptr);
    Editor.reset();
    Style.Release();
    for (const Part* part : kReleased)
        part->Release(*this);
}

Creator CreatorOf(const automation::InterfaceDescription& description) {
    // Every device has one of these: it is no part of the control's own.
    if (&description == &automation::DescriptionOf<interfaces::IMavrin2DeviceLine>())
        return &CreateObject<objects::CMavrin2DeviceLine>;
    const auto* found = std::ranges::find_if(kParts, [&](const Part& part) {
        return part.Interface && &part.Interface() == &description;
    });
    return found == std::end(kParts) ? nullptr : found->Create;
}

}  // namespace mavrin2::server
