#include "control/server/control_parts.h"

namespace mavrin2::server {

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
      Container(identity) {}

void ControlParts::Teardown() {
    Container.Detach();
    if (Position) Position->History().FreeChain();
    // All are detached before any is let go of.
    const auto detach = [](const auto&... objects) {
        ((objects ? objects->Detach() : void()), ...);
    };
    detach(ScaleX, ScaleY, Colors, FileInfo, Position, Channels);
    Editor.reset();
    Style.Release();
    ScaleX.Reset();
    ScaleY.Reset();
    Colors.Reset();
    FileInfo.Reset();
    Position.Reset();
    Channels.Reset();
    Dusoro.Release();
}

}  // namespace mavrin2::server
