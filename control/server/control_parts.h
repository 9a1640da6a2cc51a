#pragma once

#include <functional>
#include <memory>

#include "control/editor/grabber_companion.h"
#include "control/editor/sound_file_companion.h"
#include "control/objects/channel.h"
#include "control/objects/colors.h"
#include "control/objects/device.h"
#include "control/objects/file_format.h"
#include "control/objects/file_info.h"
#include "control/objects/lame_enc.h"
#include "control/objects/markers.h"
#include "control/objects/position.h"
#include "control/objects/recorder.h"
#include "control/objects/scale.h"
#include "control/objects/transform.h"
#include "control/processing/transform_companion.h"
#include "control/server/container/container_front.h"
#include "control/server/document_editor.h"
#include "control/server/event_source.h"
#include "control/server/view_style.h"
#include "platform/ports.h"

namespace mavrin2::server {

// What a control gets from outside: the system it runs on, and how its companions are created.
struct ControlEnvironment {
    platform::Ports Ports;
    objects::CompanionFactory CreateCompanion;
};

// The running system and its component registry.
ControlEnvironment SystemEnvironment();

// Everything that one control is made of. A new sub-object or companion is a member here and a row
// in the table of control_parts.cpp, which makes, attaches, detaches and releases it.
class ControlParts {
public:
    // `identity` is the control as others see it, not counted; events go to `hosts`.
    ControlParts(ControlEnvironment environment, IUnknown* identity,
                 const automation::ConnectionPoint& hosts);
    ControlParts(const ControlParts&) = delete;
    ControlParts& operator=(const ControlParts&) = delete;

    // Makes the parts in their fixed order, stopping at the first that cannot be made: the user is
    // told in a message box, and the result is that part's failure.
    HRESULT Construct();
    // Releases everything, in the fixed order of a control's end. Sub-objects that a host still
    // holds live on, detached.
    void Teardown();

    ControlEnvironment Environment;
    IUnknown* const Identity;
    EventSource Events;
    ControlState State;
    editor::TemporaryFiles Temporary;
    ContainerFront Container;

    // The control's own, whatever a host has put in their place.
    automation::ComPtr<objects::CMavrin2Scale> ScaleX;
    automation::ComPtr<objects::CMavrin2Scale> ScaleY;
    automation::ComPtr<objects::CMavrin2Colors> Colors;
    ViewStyle Style;
    automation::ComPtr<objects::CMavrin2Device> DeviceInput;
    automation::ComPtr<objects::CMavrin2Device> DeviceOutput;
    automation::ComPtr<objects::CMavrin2FileInfo> FileInfo;
    automation::ComPtr<objects::CMavrin2Position> Position;
    automation::ComPtr<objects::CMavrin2Channel> Channels;
    automation::ComPtr<objects::CMavrin2Markers> Markers;
    automation::ComPtr<objects::CMavrin2Recorder> Recorder;
    automation::ComPtr<objects::CMavrin2FileFormat> FileFormat;
    automation::ComPtr<objects::CMavrin2Transform> Transform;
    // The control's own at first, then that of the last SetFormatMP3Ex.
    automation::ComPtr<interfaces::IMavrin2LameEnc> LameEnc;
    processing::PlaybackCompanion Velto;
    processing::RecordingCompanion Rimbal;
    editor::SoundFileCompanion Dusoro;
    processing::TransformCompanion Kestrin;
    editor::GrabberCompanion Pindle;
    objects::OutputChoice Output{Dusoro, State.Format, LameEnc};
    std::unique_ptr<DocumentEditor> Editor;  // null until all parts are made

private:
    HRESULT MakeParts();
    void Wire();
    void SendInitialSettings();
    void ShowTrackProgress(std::int32_t percent);
};

// How the class whose interface this is makes an object, alone or aggregated; null when it is not a
// class of sub-objects.
using Creator = HRESULT (*)(IUnknown* outer, REFIID iid, void** object);
Creator CreatorOf(const automation::InterfaceDescription& description);

}  // namespace mavrin2::server
