#include "tests/support/fake_kestrin.h"

#include <algorithm>

namespace mavrin2::tests {

std::string FakeKestrin::Text(SAFEARRAY** array) {
    std::ostringstream text;
    for (const float value : automation::ArrayView<float>(*array).Elements())
        text << "[" << value << "]";
    return text.str();
}

HRESULT FakeKestrin::Run(SAFEARRAY** block) {
    if (Replace) Replace(block);
    if (!Process) return S_OK;
    std::vector<std::int16_t> samples;
    {
        const automation::ArrayView<std::int16_t> view(*block);
        samples.assign(view.Elements().begin(), view.Elements().end());
    }
    const HRESULT status = Process(samples);
    automation::SafeArray<std::int16_t> result(samples.size());
    std::ranges::copy(samples,
                      automation::ArrayView<std::int16_t>(result.Get()).Elements().begin());
    SafeArrayDestroy(*block);
    *block = result.Detach();
    return status;
}

}  // namespace mavrin2::tests
