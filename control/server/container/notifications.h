#pragma once

#include <vector>

#include "automation/com_ptr.h"

namespace mavrin2::server {

// The sinks for changes of the control's picture, for saving and for closing.
class Notifications {
public:
    struct Connection {
        DWORD Number;
        automation::ComPtr<IAdviseSink> Sink;
    };
    struct ViewSink {
        DWORD Aspects = 0;
        DWORD Flags = 0;
        automation::ComPtr<IAdviseSink> Sink;
    };

    // Returns the number of the connection, never 0.
    DWORD Connect(IAdviseSink* sink);
    // False when there is no such connection.
    bool Disconnect(DWORD number);
    const std::vector<Connection>& Connections() const { return connections_; }

    // There is one for the picture; it replaces the one before.
    void SetViewSink(ViewSink sink);
    const ViewSink& View() const { return view_; }

    void TellViewChanged();
    void TellSaved();
    void TellClosed();

    void DisconnectAll();

private:
    void TellAll(void (STDMETHODCALLTYPE IAdviseSink::*event)());

    std::vector<Connection> connections_;
    ViewSink view_;
    DWORD lastNumber_ = 0;
};

}  // namespace mavrin2::server
