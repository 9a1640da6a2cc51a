#include "hosts/desktop/sound/editor.h"

#include <algorithm>
#include <exception>

#include "automation/variant.h"
#include "hosts/binding/edit_error.h"

namespace mavrin2::desktop {

using binding::LateBound;
using binding::TypeDescription;

Editor::Editor()
    : control_(binding::CreateObject(binding::kEditorProgId)),
      events_(control_.Object(), [this](DISPID event, std::span<const VARIANT> arguments) {
          OnEvent(event, arguments);
      }) {}

Editor::~Editor() {
    events_.Close();
}

void Editor::OnEvent(DISPID event, std::span<const VARIANT> arguments) {
    const auto* const member = events_.Events().Find(event, INVOKE_FUNC);
    if (!member) return;
    if (member->Name == "BlockOperation" && !arguments.empty()) {
        automation::Variant percent;
        VARIANT given = arguments.front();
        if (SUCCEEDED(VariantChangeType(&percent, &given, 0, VT_I4))) emit Progress(percent.lVal);
    } else if (member->Name == "ChangePosition") {
        emit Changed();
    } else if (member->Name == "ChangeMarker" || member->Name == "NewMarker") {
        emit MarkersChanged();
    }
}

const TypeDescription& Editor::DescriptionOf(std::string_view part) const {
    const auto known = descriptions_.find(part);
    if (known != descriptions_.end()) return known->second;
    const LateBound object = part.empty() ? control_ : control_.Part(part);
    const auto information = binding::TypeInformationOf(object.Object());
    TypeDescription description = information ? TypeDescription(*information) : TypeDescription();
    return descriptions_.emplace(part, std::move(description)).first->second;
}

bool Editor::Has(std::string_view member) const {
    const std::size_t dot = member.find('.');
    if (dot == std::string_view::npos)
        return DescriptionOf({}).Find(member, binding::kAnyKind) != nullptr;
    const std::string_view part = member.substr(0, dot);
    return Has(part) && DescriptionOf(part).Find(member.substr(dot + 1), binding::kAnyKind);
}

bool Editor::Perform(const std::function<void()>& calls) {
    if (busy_) return false;
    busy_ = true;
    stopped_ = false;
    emit Started();
    QString failure;
    try {
        calls();
    } catch (const std::exception& error) {
        failure = QString::fromStdString(error.what());
    }
    busy_ = false;
    emit Ended();
    emit Changed();
    if (!failure.isEmpty()) emit Failed(failure);
    return failure.isEmpty();
}

bool Editor::Edit(const std::function<void()>& calls) {
    const bool done = Perform([&] {
        // What plays or is recorded: the control edits only while it is idle.
        if (control_.Number("Status") != 0) control_.Call("Stop");
        calls();
        const qint32 error = control_.Number("LastErrorNum");
        if (error != 0 && !stopped_) throw std::runtime_error(binding::EditErrorText(error));
    });
    return done && !stopped_;
}

bool Editor::EditKeepingZoom(const std::function<void()>& calls) {
    return Edit([&] {
        const SoundPosition before = Position();
        calls();
        const SoundPosition after = Position();
        const qint32 length = std::min(before.ViewEnd - before.ViewStart, after.Total);
        const bool whole = before.ViewEnd - before.ViewStart >= before.Total;
        if (whole || after.ViewEnd - after.ViewStart >= length) return;
        const qint32 start = std::min(after.ViewStart, after.Total - length);
        ShowRange(start, start + length);
    });
}

void Editor::Stop() {
    stopped_ = true;
    control_.Call("Stop");
}

std::string Editor::Version() const {
    // With a sound open this is its work file, of which every version has another.
    const std::string file = control_.Text("TempDirectory");
    return file.ends_with('/') ? std::string() : file;
}

bool Editor::IsOpen() const {
    return !Version().empty();
}

SoundPosition Editor::Position() const {
    const LateBound position = control_.Part("Position");
    return {position.Number("StartSelect"),   position.Number("EndSelect"),
            position.Number("Selected") != 0, position.Number("StartView"),
            position.Number("EndView"),       position.Number("TotalSamples")};
}

void Editor::Select(qint32 start, qint32 end) const {
    const LateBound position = control_.Part("Position");
    position.Put("Selected", false);
    position.Put("StartSelect", start);
    if (start == end) return;
    position.Put("Selected", true);
    position.Put("EndSelect", end);
}

void Editor::MoveTo(qint32 position) const {
    Select(position, position);
}

void Editor::ShowRange(qint32 start, qint32 end) const {
    const LateBound position = control_.Part("Position");
    // An end that passes the other one would change places with it.
    if (start >= position.Number("EndView")) position.Put("EndView", end);
    position.Put("StartView", start);
    position.Put("EndView", end);
}

}  // namespace mavrin2::desktop
