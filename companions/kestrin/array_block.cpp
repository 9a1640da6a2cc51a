#include "companions/kestrin/array_block.h"

#include <algorithm>
#include <limits>

#include "automation/guarded.h"

namespace mavrin2::kestrin {

bool ArrayBlock::IsUsable() const {
    VARTYPE type = VT_EMPTY;
    return array_ && *array_ && SafeArrayGetDim(*array_) == 1 &&
           SUCCEEDED(SafeArrayGetVartype(*array_, &type)) && type == VT_I2;
}

void ArrayBlock::Shorten(std::size_t count) {
    view_.reset();
    SAFEARRAYBOUND bound{static_cast<ULONG>(count), 0};
    if (FAILED(SafeArrayRedim(*array_, &bound))) {
        // An array of fixed size, say: another one takes its place.
        Open();
        const auto kept = MakeReplacement(count);
        std::copy_n(Samples().begin(), count, kept.begin());
        UseReplacement();
        return;
    }
    Open();
}

std::span<std::int16_t> ArrayBlock::MakeReplacement(std::size_t count) {
    if (count > std::numeric_limits<std::int32_t>::max()) throw std::bad_alloc();
    replacement_ = automation::SafeArray<std::int16_t>(count);
    replacementView_.emplace(replacement_.Get());
    return replacementView_->Elements();
}

void ArrayBlock::UseReplacement() {
    view_.reset();
    replacementView_.reset();
    automation::ThrowIfFailed(SafeArrayDestroy(*array_));
    *array_ = replacement_.Detach();
    Open();
}

}  // namespace mavrin2::kestrin
