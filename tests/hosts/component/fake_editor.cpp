#include "tests/hosts/component/fake_editor.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <span>
#include <thread>

#include "automation/error_information.h"
#include "automation/interface_builder.h"
#include "automation/text.h"

namespace mavrin2::automation {
namespace {

constexpr PlannedMember kMembers[] = {
    {"Open", 1},       {"Save", 2},          {"Stop", 3},         {"TempDirectory", 4},
    {"FileInfo", 5},   {"Position", 6},      {"FormatString", 7}, {"Frequency", 8},
    {"Channels", 9},   {"TotalSamples", 10}, {"Selected", 11},    {"StartSelect", 12},
    {"EndSelect", 13}, {"LastErrorNum", 14}};
constexpr PlannedMember kEvents[] = {{"BlockOperation", 6}};

const InterfaceDescription& Events() {
    static const InterfaceDescription description =
        EventsBuilder("_IFakeEditorEvents", tests::DIID_FakeEditorEvents, "", kEvents,
                      &tests::FakeEditorLibrary)
            .Event("BlockOperation", "", {{"Percent", VT_I2}})
            .Build();
    return description;
}

}  // namespace

template <>
const EnumerationDescription& EnumerationOf<tests::ErrorConstants>() {
    static const EnumerationDescription description{
        "ErrorConstants",
        {0x5e1f0105, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}},
        "",
        {{"FILEACCESS", -18}}};
    return description;
}

template <>
const InterfaceDescription& DescriptionOf<tests::IFakeEditor>() {
    using I = tests::IFakeEditor;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IFakeEditor", "", kMembers, &tests::FakeEditorLibrary)
            .Method<&I::Open>("Open", "", In("fileName"))
            .Method<&I::Save>("Save", "", In("fileName"), In("Selected").Boolean())
            .Method<&I::Stop>("Stop", "")
            .Get<&I::get_TempDirectory>("TempDirectory", "")
            .Get<&I::get_FileInfo>("FileInfo", "")
            .Get<&I::get_Position>("Position", "")
            .Get<&I::get_FormatString>("FormatString", "")
            .Get<&I::get_Frequency>("Frequency", "")
            .Get<&I::get_Channels>("Channels", "")
            .Get<&I::get_TotalSamples>("TotalSamples", "")
            .PutBoolean<&I::put_Selected>("Selected", "")
            .Put<&I::put_StartSelect>("StartSelect", "")
            .Put<&I::put_EndSelect>("EndSelect", "")
            .Get<&I::get_LastErrorNum>("LastErrorNum", "")
            .Build();
    return description;
}

}  // namespace mavrin2::automation

namespace mavrin2::tests {

using automation::Bstr;
using automation::ComPtr;
using automation::DescriptionOf;
using automation::Guarded;
using automation::NewBstr;

const automation::LibraryDescription& FakeEditorLibrary() {
    static const automation::LibraryDescription library{
        "FakeEditorLib",
        {0x5e1f0104, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}},
        1,
        0,
        "",
        {&automation::EnumerationOf<ErrorConstants>},
        {&DescriptionOf<IFakeEditor>, &automation::Events},
        {{"FakeEditor", CLSID_FakeEditor, "", &DescriptionOf<IFakeEditor>, &automation::Events}}};
    return library;
}

FakeEditor::FakeEditor(IUnknown* outer)
    : AutomationObject(outer),
      points_(Identity(), {&DIID_FakeEditorEvents}),
      classInformation_(Identity(), &FakeEditorLibrary, CLSID_FakeEditor) {}

void* FakeEditor::FindInterface(REFIID iid) {
    if (IsEqualGUID(iid, IID_IConnectionPointContainer)) return &points_;
    if (IsEqualGUID(iid, IID_IProvideClassInfo)) return &classInformation_;
    return nullptr;
}

void FakeEditor::Progress(SHORT percent) {
    VARIANT argument{};
    argument.vt = VT_I2;
    argument.iVal = percent;
    automation::FireEvent(points_.At(0), 6, {&argument, 1});
}

HRESULT FakeEditor::Fail(HRESULT status, const char* description) {
    automation::LeaveErrorInformation(Id, "KovMavrin2.Mavrin2.2", description);
    return status;
}

STDMETHODIMP FakeEditor::Open(BSTR fileName) {
    return Guarded([&]() -> HRESULT {
        open_ = false;
        std::ifstream(automation::ToPath(Bstr::View(fileName))) >> kind_ >> rate_ >> channels_ >>
            frames_;
        Progress(50);
        if (kind_ == "BROKEN")
            return Fail(static_cast<HRESULT>(0x80040304), "Format is not supported.");
        open_ = kind_ != "LOST";
        return S_OK;
    });
}

STDMETHODIMP FakeEditor::Save(BSTR fileName, VARIANT_BOOL Selected) {
    return Guarded([&]() -> HRESULT {
        if (!open_ || kind_ == "EMPTY") return S_OK;
        std::ofstream file(automation::ToPath(Bstr::View(fileName)));
        file << kind_ << ' ' << (Selected ? start_ : 0) << ' ' << (Selected ? end_ : frames_)
             << std::endl;
        Progress(50);
        if (kind_ == "FULL") return Fail(static_cast<HRESULT>(0x80040309), "File Access error.");
        if (kind_ == "SLOW") {
            std::puts("begun");
            std::fflush(stdout);
        }
        for (SHORT step = 0; kind_ == "SLOW" && !stopped_ && step < 10000; ++step) {
            Progress(static_cast<SHORT>(step % 100));
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return S_OK;
    });
}

STDMETHODIMP FakeEditor::Stop() {
    stopped_ = true;
    return S_OK;
}

STDMETHODIMP FakeEditor::get_TempDirectory(BSTR* Value) {
    return Guarded([&] { *Value = NewBstr(std::string_view(open_ ? "/tmp/nct1.tmp" : "/tmp/")); });
}

STDMETHODIMP FakeEditor::get_FileInfo(IFakeEditor** Value) {
    *Value = ComPtr<IFakeEditor>(this).Detach();
    return S_OK;
}

STDMETHODIMP FakeEditor::get_Position(IFakeEditor** Value) {
    return get_FileInfo(Value);
}

STDMETHODIMP FakeEditor::get_FormatString(BSTR* Value) {
    return Guarded([&] { *Value = NewBstr(kind_ + " format"); });
}

STDMETHODIMP FakeEditor::get_Frequency(LONG* Value) {
    *Value = rate_;
    return S_OK;
}

STDMETHODIMP FakeEditor::get_Channels(LONG* Value) {
    *Value = channels_;
    return S_OK;
}

STDMETHODIMP FakeEditor::get_TotalSamples(LONG* Value) {
    *Value = frames_;
    return S_OK;
}

STDMETHODIMP FakeEditor::put_Selected(VARIANT_BOOL Value) {
    selected_ = Value;
    return S_OK;
}

// The ends of a selection move as the editor's do.
STDMETHODIMP FakeEditor::put_StartSelect(LONG Value) {
    start_ = Value;
    if (!selected_ || end_ < Value) end_ = Value;
    return S_OK;
}

STDMETHODIMP FakeEditor::put_EndSelect(LONG Value) {
    end_ = Value;
    if (!selected_) start_ = Value;
    return S_OK;
}

STDMETHODIMP FakeEditor::get_LastErrorNum(ErrorConstants* Value) {
    *Value = ErrorConstants::FILEACCESS;
    return S_OK;
}

}  // namespace mavrin2::tests
