#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "automation/counted.h"
#include "automation/guarded.h"

namespace mavrin2::automation {

// One of the system's enumerators, over a list taken when it was made. `Give` makes what the caller
// gets from an item, with its own references and memory.
template <class Interface, class Item, class Element, Element (*Give)(const Item&)>
class Enumeration final : public Counted<Interface> {
public:
    explicit Enumeration(std::vector<Item> items, std::size_t at = 0)
        : items_(std::move(items)), at_(at) {}

    STDMETHODIMP Next(ULONG count, Element* elements, ULONG* fetched) override {
        return Guarded([&]() -> HRESULT {
            if (!elements || (!fetched && count != 1)) return E_POINTER;
            if (fetched) *fetched = 0;
            ULONG done = 0;
            for (; done < count && at_ < items_.size(); ++done, ++at_)
                elements[done] = Give(items_[at_]);
            if (fetched) *fetched = done;
            return done == count ? S_OK : S_FALSE;
        });
    }
    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t left = items_.size() - at_;
        at_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        at_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** copy) override {
        return Guarded([&]() -> HRESULT {
            if (!copy) return E_POINTER;
            *copy = new Enumeration(items_, at_);
            return S_OK;
        });
    }

private:
    std::vector<Item> items_;
    std::size_t at_;
};

}  // namespace mavrin2::automation
