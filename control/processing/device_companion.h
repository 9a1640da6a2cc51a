#pragma once

#include <cstdint>
#include <utility>

#include "automation/com_ptr.h"
#include "automation/event_sink.h"
#include "automation/guarded.h"
#include "automation/safe_array.h"
#include "companions/contracts/constants.h"

namespace mavrin2::processing {

using SamplesBlock = automation::SafeArray<std::int16_t>;

// How far a device has come since it was started, and the levels of its two channels.
struct DevicePosition {
    std::int32_t Frames = 0;
    std::int32_t LevelLeft = 0;
    std::int32_t LevelRight = 0;
};

// What the companions for playback and capture have in common. Each method is one call of the
// contract; what it returns is ignored. Without a companion every call does nothing, and what a
// companion throws ends here.
template <class Interface>
class DeviceCompanion {
public:
    // `control` is not counted; it is kept alive while an event of the companion is handled.
    explicit DeviceCompanion(IUnknown* control) : control_(control) {}

    void Disconnect() { events_.Close(); }
    void Release() {
        Disconnect();
        companion_.Reset();
    }

    void SetTimerInterval(std::int16_t milliseconds) {
        Call(&Interface::put_TimerInterval, milliseconds);
    }
    void SetFormat(std::int32_t frequency, std::int32_t channels) {
        Call(&Interface::SetFormat, LONG{frequency}, LONG{channels});
    }
    void PrepareDevice() { Call(&Interface::PrepareDevice); }
    contracts::ErrorConstants StartDevice() {
        LONG error = 0;
        Call(&Interface::StartDevice, &error);
        return static_cast<contracts::ErrorConstants>(error);
    }
    void StopDevice() { Call(&Interface::StopDevice); }
    // At most `count` frames, the latest ones.
    SamplesBlock GetRecentSamples(std::int32_t count) {
        SamplesBlock samples;
        Call(&Interface::GetRecentSamples, LONG{count}, samples.Put());
        return samples;
    }

    // One call of the contract; fails with E_FAIL without a companion.
    template <class Method, class... Arguments>
    HRESULT Call(Method method, Arguments... arguments) {
        return automation::Guarded([&]() -> HRESULT {
            // A companion may call the host, which may release the control.
            const auto companion = companion_;
            return companion ? (companion.Get()->*method)(arguments...) : E_FAIL;
        });
    }

protected:
    void Connect(automation::ComPtr<Interface> companion, const IID& events,
                 automation::EventSink::Handler handler) {
        companion_ = std::move(companion);
        // One without events works too.
        events_.Open(companion_.Get(), events,
                     [this, handler = std::move(handler)](
                         DISPID event, const automation::EventArguments& arguments) {
                         const automation::ComPtr<IUnknown> held(control_);
                         return handler(event, arguments);
                     });
    }

private:
    IUnknown* const control_;
    automation::ComPtr<Interface> companion_;
    automation::EventConnection events_;
};

}  // namespace mavrin2::processing
