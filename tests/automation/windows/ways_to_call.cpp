#include "tests/automation/ways_to_call.h"

#include "automation/guarded.h"
#include "platform/module_type_library.h"

namespace mavrin2::tests {
namespace {

using automation::ComPtr;

const int kHere = 0;

// The system's own late binding, which calls the virtual table by what the compiled library says.
ComPtr<IDispatch> SystemDispatch(ITestThing& thing) {
    ComPtr<ITypeLib> library;
    automation::ThrowIfFailed(platform::LoadModuleTypeLibrary(&kHere, library.Put()));
    ComPtr<ITypeInfo> type;
    automation::ThrowIfFailed(library->GetTypeInfoOfGuid(ITestThing::Id, type.Put()));
    ComPtr<IUnknown> made;
    automation::ThrowIfFailed(::CreateStdDispatch(nullptr, &thing, type.Get(), made.Put()));
    return made.As<IDispatch>();
}

}  // namespace

std::vector<WayToCall> WaysToCall() {
    return {{"TheObjectItself",
             [](ITestThing& thing) { return ComPtr<IDispatch>(static_cast<IDispatch*>(&thing)); },
             true},
            {"TheSystem", &SystemDispatch, false}};
}

}  // namespace mavrin2::tests
