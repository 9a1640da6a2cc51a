#include "control/server/container/notifications.h"

#include <algorithm>
#include <utility>

namespace mavrin2::server {

DWORD Notifications::Connect(IAdviseSink* sink) {
    connections_.push_back({++lastNumber_, automation::ComPtr<IAdviseSink>(sink)});
    return lastNumber_;
}

bool Notifications::Disconnect(DWORD number) {
    const auto found = std::ranges::find(connections_, number, &Connection::Number);
    if (found == connections_.end()) return false;
    // Released last: it may come back here.
    const auto gone = std::move(found->Sink);
    connections_.erase(found);
    return true;
}

void Notifications::SetViewSink(ViewSink sink) {
    std::swap(view_, sink);
    if ((view_.Flags & ADVF_PRIMEFIRST) != 0) TellViewChanged();
}

void Notifications::TellViewChanged() {
    if (!view_.Sink || (view_.Aspects & DVASPECT_CONTENT) == 0) return;
    const auto sink = view_.Sink;
    if ((view_.Flags & ADVF_ONLYONCE) != 0) view_ = {};
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

void Notifications::TellSaved() {
    TellAll(&IAdviseSink::OnSave);
}

void Notifications::TellClosed() {
    TellAll(&IAdviseSink::OnClose);
    // The picture's sink is notified as well: a container may have no other.
    if (const auto sink = view_.Sink) sink->OnClose();
}

void Notifications::TellAll(void (STDMETHODCALLTYPE IAdviseSink::*event)()) {
    // Those that are connected now; a sink may disconnect others.
    const std::vector<Connection> connections = connections_;
    for (const Connection& connection : connections)
        (connection.Sink.Get()->*event)();
}

void Notifications::DisconnectAll() {
    const auto connections = std::exchange(connections_, {});
    const auto view = std::exchange(view_, {});
}

}  // namespace mavrin2::server
