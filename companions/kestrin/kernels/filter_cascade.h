#pragma once

#include <span>
#include <vector>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/filter_design.h"
#include "companions/kestrin/kernels/recursion.h"

namespace mavrin2::kestrin {

// Second-order filters in series, computed with double precision.
class FilterCascade final : public Effect {
public:
    explicit FilterCascade(std::span<const FilterSection> sections);

    void Process(std::span<float> block) override;
    std::size_t LeadIn() const override { return leadIn_; }

private:
    std::vector<Recursion<2, double>> sections_;
    std::size_t leadIn_;
};

}  // namespace mavrin2::kestrin
