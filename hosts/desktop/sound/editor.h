#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "hosts/binding/event_connection.h"
#include "hosts/binding/late_binding.h"
#include "hosts/binding/type_description.h"

namespace mavrin2::desktop {

// Where things are in the open sound, in frames; all 0 without one.
struct SoundPosition {
    qint32 Start = 0;  // of the selection, or the current position
    qint32 End = 0;
    bool Selected = false;
    qint32 ViewStart = 0;
    qint32 ViewEnd = 0;
    qint32 Total = 0;
};

// The sound editor control, called by the names of its members. Calls throw CallError unless they
// are made inside Perform.
class Editor final : public QObject {
    Q_OBJECT

public:
    Editor();
    ~Editor() override;

    IUnknown& Control() const { return control_.Object(); }
    const binding::LateBound& Members() const { return control_; }
    binding::LateBound Part(std::string_view name) const { return control_.Part(name); }
    // Whether the control has a member: "Undo", or "Position.StartSelect" of an object that a
    // property returns.
    bool Has(std::string_view member) const;

    // Runs calls, and reports by `Failed` what they throw. Nothing happens, and the result is
    // false, while an operation is running; a failure gives false too.
    bool Perform(const std::function<void()>& calls);
    // The same for calls that change, write or play the sound, after what plays or is recorded has
    // been ended: also an error that they leave in
    // LastErrorNum is a failure, and so is to be stopped.
    bool Edit(const std::function<void()>& calls);

    // The same for calls that may shorten the sound. Where only a part of it is visible, as much
    // stays visible, also if all of that is deleted.
    bool EditKeepingZoom(const std::function<void()>& calls);

    bool IsBusy() const { return busy_; }
    // Whether the operation that ended last was stopped.
    bool WasStopped() const { return stopped_; }
    // Ends the running operation.
    void Stop();

    bool IsOpen() const;
    // Differs between any two states of the sound that Undo tells apart; empty without a sound.
    std::string Version() const;
    SoundPosition Position() const;
    void Select(qint32 start, qint32 end) const;
    // Moves the current position, without a selection.
    void MoveTo(qint32 position) const;
    // Shows frames from `start` to before `end`, which is behind it.
    void ShowRange(qint32 start, qint32 end) const;

signals:
    // Sound, selection or view have changed, or may have.
    void Changed();
    // A marker was added, moved or removed.
    void MarkersChanged();
    // The calls of Perform or Edit begin, and have ended.
    void Started();
    void Ended();
    // Of an operation, in percent. Here receivers may call Stop.
    void Progress(int percent);
    void Failed(const QString& reason);

private:
    void OnEvent(DISPID event, std::span<const VARIANT> arguments);
    const binding::TypeDescription& DescriptionOf(std::string_view part) const;

    binding::LateBound control_;
    mutable std::map<std::string, binding::TypeDescription, std::less<>> descriptions_;
    bool busy_ = false;
    bool stopped_ = false;
    binding::EventConnection events_;
};

}  // namespace mavrin2::desktop
