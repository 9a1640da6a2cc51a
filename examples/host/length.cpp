// A host in C++: creates the control by name, opens the sound files that are given and prints how
// long they are.
//
//   g++ -std=c++20 length.cpp -o length $(pkg-config --cflags --libs mavrin2)
//   ./length FILE...

#include <cstdio>
#include <filesystem>
#include <string>

#include "automation/com_ptr.h"
#include "control/interfaces/mavrin2.h"

namespace {

using mavrin2::automation::ComPtr;
using namespace mavrin2::interfaces;

ComPtr<IMavrin2> CreateEditor() {
    CLSID editorClass;
    ComPtr<IMavrin2> editor;
    if (SUCCEEDED(CLSIDFromProgID(OLESTR("KovMavrin2.Mavrin2"), &editorClass)))
        CoCreateInstance(editorClass, nullptr, CLSCTX_INPROC_SERVER, IMavrin2::Id,
                         editor.PutVoid());
    return editor;
}

// False if the file cannot be opened.
bool PrintLength(IMavrin2& editor, const std::filesystem::path& file) {
    const BSTR name = SysAllocString(file.u16string().c_str());
    const HRESULT opened = editor.Open(name, {});
    SysFreeString(name);
    if (FAILED(opened)) {
        std::fprintf(stderr, "%s: status 0x%08X\n", file.c_str(), static_cast<unsigned>(opened));
        return false;
    }
    ComPtr<IMavrin2Position> position;
    LONG frames = 0;
    editor.get_Position(position.Put());
    position->get_TotalSamples(&frames);
    std::printf("%s: %d frames\n", file.c_str(), static_cast<int>(frames));
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    const auto editor = CreateEditor();
    if (!editor) {
        std::fputs("the control is not installed\n", stderr);
        return 1;
    }
    bool all = true;
    for (int i = 1; i < count; ++i)
        all = PrintLength(*editor, arguments[i]) && all;
    return all ? 0 : 1;
}
