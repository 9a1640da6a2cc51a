#include "bench/editor.h"

#include <stdexcept>

#include "automation/text.h"

namespace mavrin2::bench {

using automation::Bstr;

namespace {

void Need(bool fine, const char* what) {
    if (!fine) throw std::runtime_error(what);
}

Bstr Text(const std::filesystem::path& path) {
    return Bstr(automation::OleStringView(automation::ToOle(path)));
}

}  // namespace

Editor::Editor() {
    Need(SUCCEEDED(CoCreateInstance(interfaces::CLSID_Mavrin2, nullptr, CLSCTX_INPROC_SERVER,
                                    interfaces::IID_IMavrin2, control_.PutVoid())),
         "no control is registered");
    control_->get_Position(position_.Put());
    // As a host with a progress bar that is hidden.
    Need(SUCCEEDED(events_.Open(control_.Get(), interfaces::DIID_IMavrin2Events,
                                [](DISPID, const automation::EventArguments&) { return S_OK; })),
         "the control raises no events");
}

void Editor::Open(const std::filesystem::path& path) {
    Need(SUCCEEDED(control_->Open(Text(path).Get(), interfaces::FormatTypeConstants::DEFAULT)),
         "the sound could not be opened");
}

void Editor::Save(const std::filesystem::path& path) {
    Need(SUCCEEDED(control_->Save(Text(path).Get(), 0, interfaces::FormatTypeConstants::DEFAULT)),
         "the sound could not be saved");
}

void Editor::SelectSecondInTheMiddle() {
    LONG total = 0, second = 0;
    position_->get_TotalSamples(&total);
    position_->SecToSamples(1000, &second);
    position_->put_Selected(VARIANT_TRUE);
    position_->put_EndSelect(total / 2 + second);
    position_->put_StartSelect(total / 2);
}

void Editor::SelectAll() {
    LONG frames = 0;
    position_->get_TotalSamples(&frames);
    position_->put_Selected(1);
    position_->put_StartSelect(0);
    position_->put_EndSelect(frames);
}

void Editor::DeleteSelect() {
    LONG before = 0, after = 0;
    position_->get_TotalSamples(&before);
    control_->DeleteSelect();
    position_->get_TotalSamples(&after);
    Need(after < before, "nothing was deleted");
}

std::filesystem::path Editor::WorkFile() const {
    Bstr path;
    control_->get_TempDirectory(path.Put());
    return automation::ToPath(path.View());
}

}  // namespace mavrin2::bench
