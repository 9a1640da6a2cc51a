#pragma once

#include <optional>

#include "automation/safe_array.h"
#include "companions/kestrin/operations/transform.h"

namespace mavrin2::kestrin {

// A block in an array that belongs to the caller, who takes back whatever the variable then holds.
class ArrayBlock final : public SampleBlock {
public:
    // `array` may be null, and what it leads to as well.
    explicit ArrayBlock(SAFEARRAY** array) : array_(array) { Open(); }

    // Whether it is an array of one dimension and of 16-bit integers, empty or not.
    bool IsUsable() const;

    std::span<std::int16_t> Samples() override { return view_->Elements(); }
    void Shorten(std::size_t count) override;
    std::span<std::int16_t> MakeReplacement(std::size_t count) override;
    void UseReplacement() override;

private:
    using View = automation::ArrayView<std::int16_t>;

    void Open() { view_.emplace(array_ ? *array_ : nullptr); }

    SAFEARRAY** array_;
    std::optional<View> view_;
    automation::SafeArray<std::int16_t> replacement_;
    std::optional<View> replacementView_;
};

}  // namespace mavrin2::kestrin
