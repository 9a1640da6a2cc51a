#include "hosts/script/commands/editor.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "hosts/script/commands/command.h"
#include "platform/interrupt.h"
#include "platform/terminal.h"

namespace mavrin2::script {
namespace {

// What the editor's methods fail with when a file cannot be opened, read or written.
constexpr std::uint32_t kFileAccess = 0x80040309;

// The system's reason is clearer than a sound library's.
void CheckReadable(const std::string& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) throw Failure(file, error.message());
    if (std::filesystem::is_directory(status))
        throw Failure(file, std::generic_category().message(EISDIR));
    // Opening a pipe would wait.
    if (!std::filesystem::is_regular_file(status)) throw Failure(file, "not a regular file");
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(std::fopen(file.c_str(), "rb"),
                                                                 &std::fclose);
    if (!opened) throw Failure(file, std::generic_category().message(errno));
}

}  // namespace

Editor::Editor()
    : editor_(CreateObject(kEditorProgId)),
      bar_(platform::TerminalWidth(stderr) ? stderr : nullptr),
      events_(editor_.Object(), [this](DISPID event, std::span<const VARIANT> arguments) {
          OnEvent(event, arguments);
      }) {
    if (const auto* event = events_.Events().Find("BlockOperation", INVOKE_FUNC))
        progress_ = event->Id;
}

void Editor::OnEvent(DISPID event, std::span<const VARIANT> arguments) {
    if (event != progress_) return;
    if (platform::Interrupted()) {
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
    if (platform::Interrupted()) throw Interruption();
}

void Editor::Open(const std::string& file) {
    CheckReadable(file);
    const std::string folder = editor_.Text("TempDirectory");
    if (folder.empty()) throw Failure("no temporary folder: TMPDIR and /tmp cannot be written to");
    Run("Reading", file, [&] {
        try {
            editor_.Call("Open", file);
        } catch (const CallError& error) {
            // The file itself can be read, so it is its working copy that cannot be written.
            if (static_cast<std::uint32_t>(error.Status()) != kFileAccess) throw;
            throw CallError(error.Status(),
                            "cannot write its working copy in the temporary folder " + folder);
        }
    });
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
