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
    if (FileInfo) FileInfo->Detach();
    FileInfo.Reset();
    if (Position) Position->Detach();
    Editor.reset();
    Position.Reset();
    Dusoro.Release();
}

}  // namespace mavrin2::server
