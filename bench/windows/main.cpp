// What a host pays for the control under Windows: creating it, and reading a property late, through
// the control's own dispatch and through the system's with the same type library.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/guarded.h"
#include "automation/variant.h"
#include "control/interfaces/mavrin2.h"

namespace {

using mavrin2::automation::ComPtr;
using mavrin2::automation::ThrowIfFailed;
using mavrin2::automation::Variant;
using Clock = std::chrono::steady_clock;

ComPtr<mavrin2::interfaces::IMavrin2> CreateControl() {
    ComPtr<mavrin2::interfaces::IMavrin2> control;
    ThrowIfFailed(::CoCreateInstance(mavrin2::interfaces::CLSID_Mavrin2, nullptr,
                                     CLSCTX_INPROC_SERVER, mavrin2::interfaces::IID_IMavrin2,
                                     control.PutVoid()));
    return control;
}

// Microseconds for one piece of work: the middle one of several runs.
template <class Work>
double Measure(int times, Work&& work) {
    constexpr int kRuns = 5;
    std::vector<double> runs;
    for (int run = 0; run < kRuns; ++run) {
        const auto start = Clock::now();
        for (int i = 0; i < times; ++i)
            work();
        runs.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count() /
                       times);
    }
    std::ranges::sort(runs);
    return runs[kRuns / 2];
}

DISPID Find(IDispatch& object, const wchar_t* member) {
    std::wstring name = member;
    LPOLESTR names[] = {name.data()};
    DISPID id = DISPID_UNKNOWN;
    ThrowIfFailed(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
    return id;
}

void Read(IDispatch& object, DISPID id) {
    DISPPARAMS none{};
    Variant value;
    ThrowIfFailed(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                &value, nullptr, nullptr));
}

void Report(const char* what, double own, double systems) {
    std::printf("%-44s %8.2f us  the system's %8.2f us  ratio %.2f\n", what, own, systems,
                own / systems);
}

int Run() {
    ThrowIfFailed(::CoInitialize(nullptr));
    std::printf("creating and releasing the control, 1,000 times: %.2f ms each\n",
                Measure(1000, [] { CreateControl(); }) / 1000);

    const auto control = CreateControl();
    ComPtr<ITypeInfo> type;
    ThrowIfFailed(control->GetTypeInfo(0, 0, type.Put()));
    ComPtr<IUnknown> made;
    ThrowIfFailed(::CreateStdDispatch(nullptr, control.Get(), type.Get(), made.Put()));
    const auto system = made.As<IDispatch>();
    IDispatch& own = *control;
    constexpr int kTimes = 20000;
    for (const wchar_t* member : {L"Status", L"TempFileName", L"Position"}) {
        const DISPID id = Find(own, member);
        std::printf("%ls\n", member);
        Report("  reading by identifier", Measure(kTimes, [&] { Read(own, id); }),
               Measure(kTimes, [&] { Read(*system, id); }));
        Report("  finding the name", Measure(kTimes, [&] { Find(own, member); }),
               Measure(kTimes, [&] { Find(*system, member); }));
    }
    return 0;
}

}  // namespace

int main() {
    try {
        return Run();
    } catch (const mavrin2::automation::StatusError& error) {
        std::printf("failed with 0x%08X\n", static_cast<unsigned>(error.Status));
        return 1;
    }
}
