#pragma once

#include "control/editor/clipboard_exchange.h"
#include "control/editor/document_opening.h"
#include "control/editor/document_saver.h"
#include "control/editor/edit_operations.h"
#include "control/editor/format_conversion.h"
#include "control/editor/markers/marker_bar.h"
#include "control/editor/markers/marker_display_list.h"
#include "control/editor/markers/marker_files.h"
#include "control/editor/markers/marker_settings.h"
#include "control/editor/markers/markers.h"
#include "control/editor/positions.h"
#include "control/editor/sample_arrays.h"
#include "control/editor/services.h"
#include "control/editor/undo_redo.h"
#include "control/editor/view_state.h"
#include "control/objects/channel.h"
#include "control/objects/colors.h"
#include "control/objects/transform.h"
#include "control/processing/playback.h"
#include "control/processing/recording.h"
#include "control/processing/transform_companion.h"
#include "control/processing/transform_pipeline.h"
#include "control/processing/transport.h"
#include "control/view/document_picture.h"
#include "control/view/marker_view.h"
#include "control/view/mouse/mouse_handler.h"
#include "control/view/view_operations.h"
#include "control/view/zoom.h"
#include "platform/ports.h"

namespace mavrin2::server {

// The plain state that the parts of one control share.
struct ControlState {
    editor::DocumentFormat Format;
    editor::ChannelSwitches Channels;
    editor::PlayState Play;
    processing::PlaySpeed Speed;
    editor::RecordState Recording;
    editor::SelectionColumns Selection;
    editor::DragState Drag;
    editor::MarkerSettings MarkerSettings;
    editor::MarkerDisplayList MarkerDisplay;
    view::PictureSettings Picture;
    view::MouseSettings Mouse;
    editor::OperationStatus Status;
    editor::EditSettings Settings;
    editor::UndoSteps Steps;
    editor::OperationCounter Operations;
};

// What the editor of a control works with that is not its own.
struct EditorDependencies {
    const platform::Ports& Ports;
    editor::TemporaryFiles& Temporary;
    editor::UndoHistory& History;
    ControlState& State;
    editor::SoundFileCompanion& Companion;
    editor::ExtraInfo& Extra;
    processing::PlaybackCompanion& Player;
    const processing::DeviceBuffering& Output;
    processing::RecordingCompanion& Recorder;
    const processing::DeviceBuffering& Input;
    processing::TransformCompanion& Transforms;
    editor::GrabberCompanion& Grabber;
    editor::EditOperations::CompanionSource NewCompanion;
    editor::EditorEvents& Events;
    processing::TransportEvents& TransportEvents;
    view::MouseEvents& MouseEvents;
    view::Style& Style;
    view::Display& Display;
};

// The editor of one control, wired: everything that works on its document, and its picture.
class DocumentEditor {
public:
    explicit DocumentEditor(const EditorDependencies& dependencies);
    DocumentEditor(const DocumentEditor&) = delete;
    DocumentEditor& operator=(const DocumentEditor&) = delete;

    // Of what is being read or written, in percent.
    void ShowProgress(int percent);

private:
    editor::Document document_;
    editor::Operation operation_;
    editor::Storage storage_;
    view::DocumentPicture picture_;
    editor::ViewRange range_;
    editor::MarkerBar markerBar_;
    editor::Presentation presentation_;

public:
    processing::Playback Playback;
    processing::Recording Recording;
    processing::Transport Transport;
    editor::UndoRedo UndoRedo;
    editor::Markers Markers;

private:
    editor::MarkerFiles markerFiles_;

public:
    editor::DocumentOpening Opening;
    editor::DocumentSaver Saver;
    editor::EditOperations Edits;
    editor::ClipboardExchange Clipboard;
    editor::SampleArrays Arrays;
    editor::FormatConversion Conversion;
    editor::Positions Positions;
    view::ViewOperations View;
    view::MarkerView MarkerView;
    view::Zoom Zooming;
    view::MouseHandler Mouse;
    objects::CMavrin2Channel::Parts Channels;
    objects::CMavrin2Colors::Parts Colors;
    processing::TransformPipeline Pipeline;
    objects::CMavrin2Transform::Parts Transforms;
};

}  // namespace mavrin2::server
