#include "hosts/script/commands/editor.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "hosts/script/commands/failure.h"
#include "hosts/script/process/component_finder.h"
#include "hosts/script/process/interrupt.h"

namespace mavrin2::script {
namespace {

// The system says more clearly than a sound library why a file cannot be had.
void CheckReadable(const std::string& file) {
    struct stat status = {};
    int error = 0;
    if (::stat(file.c_str(), &status) != 0)
        error = errno;
    else if (S_ISDIR(status.st_mode))
        error = EISDIR;
    else if (!S_ISREG(status.st_mode))
        throw Failure(file, "Not a regular file");
    else if (::access(file.c_str(), R_OK) != 0)
        error = errno;
    if (error != 0) throw Failure(file, std::generic_category().message(error));
}

}  // namespace

Editor::Editor()
    : editor_(CreateObject(kEditorProgId)),
      bar_(IfTerminal(stderr)),
      events_(editor_.Object(), [this](DISPID event, std::span<const VARIANT> arguments) {
          OnEvent(event, arguments);
      }) {
    if (const auto* event = events_.Events().Find("BlockOperation", INVOKE_FUNC))
        progress_ = event->Id;
}

void Editor::OnEvent(DISPID event, std::span<const VARIANT> arguments) {
    if (event != progress_) return;
    if (Interrupted()) {
        editor_.Call("Stop");
        return;
    }
    automation::Variant percent;
    if (arguments.empty() ||
        FAILED(VariantChangeType(&percent, const_cast<VARIANT*>(arguments.data()), 0, VT_I4)))
        return;
    bar_.Show(work_, percent.lVal);
}

void Editor::Run(const char* work, const std::string& name, auto&& operation) {
    work_ = work;
    try {
        operation();
    } catch (const CallError& error) {
        bar_.Clear();
        throw Failure(name, error.what());
    }
    bar_.Clear();
    if (Interrupted()) throw Interruption();
}

void Editor::Open(const std::string& file) {
    CheckReadable(file);
    Run("Reading", file, [&] { editor_.Call("Open", file); });
    // Without a work file there is no document, and that is no error of the control's.
    const std::string folder = editor_.Text("TempDirectory");
    if (std::filesystem::is_directory(folder))
        throw Failure(file, "No room for it in the temporary folder " + folder);
}

std::string Editor::Format() const {
    return editor_.Part("FileInfo").Text("FormatString");
}

std::int32_t Editor::Frames() const {
    return editor_.Part("Position").Number("TotalSamples");
}

std::int32_t Editor::Rate() const {
    return editor_.Part("FileInfo").Number("Frequency");
}

std::int32_t Editor::Channels() const {
    return editor_.Part("FileInfo").Number("Channels");
}

void Editor::Select(std::int32_t start, std::int32_t end) const {
    const LateBound position = editor_.Part("Position");
    position.Put("Selected", true);
    position.Put("StartSelect", start);
    position.Put("EndSelect", end);
}

void Editor::ShowRange(std::int32_t start, std::int32_t end) const {
    editor_.Call("Zoom", start, end);
}

void Editor::ShowSpectrum() const {
    constexpr std::int32_t kSpectral = 1;
    editor_.Put("TypeView", kSpectral);
}

void Editor::ShowChannel(std::int32_t channel, bool visible) const {
    const LateBound channels = editor_.Part("Channels");
    channels.Put("Num", channel);
    channels.Put("Visible", visible);
}

void Editor::Save(const std::filesystem::path& file, const std::string& name, bool selection) {
    Run("Writing", name, [&] { editor_.Call("Save", file.string(), selection); });
}

}  // namespace mavrin2::script
