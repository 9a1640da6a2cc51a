#pragma once

#include <cstdint>
#include <new>
#include <span>
#include <utility>

#include "platform/automation.h"

namespace mavrin2::automation {

template <class Element>
struct ArrayElement;
template <>
struct ArrayElement<std::int16_t> {
    static constexpr VARTYPE Type = VT_I2;
};
template <>
struct ArrayElement<float> {
    static constexpr VARTYPE Type = VT_R4;
};

// A one-dimensional automation array with lower bound 0, owned.
template <class Element>
class SafeArray {
public:
    SafeArray() = default;
    // `count` zeros. Throws std::bad_alloc.
    explicit SafeArray(std::size_t count)
        : array_(SafeArrayCreateVector(ArrayElement<Element>::Type, 0, static_cast<ULONG>(count))) {
        if (!array_) throw std::bad_alloc();
    }
    SafeArray(SafeArray&& other) noexcept : array_(std::exchange(other.array_, nullptr)) {}
    SafeArray& operator=(SafeArray&& other) noexcept {
        std::swap(array_, other.array_);
        return *this;
    }
    ~SafeArray() { Reset(); }

    SAFEARRAY* Get() const { return array_; }
    SAFEARRAY** Put() {
        Reset();
        return &array_;
    }
    // For a callee that changes the array or puts another one in its place.
    SAFEARRAY** Address() { return &array_; }
    [[nodiscard]] SAFEARRAY* Detach() { return std::exchange(array_, nullptr); }
    void Reset() {
        if (SAFEARRAY* old = std::exchange(array_, nullptr)) SafeArrayDestroy(old);
    }

    // Keeps the first `count` elements. Throws std::bad_alloc when the system refuses.
    void Resize(std::size_t count) {
        SAFEARRAYBOUND bound{static_cast<ULONG>(count), 0};
        if (FAILED(SafeArrayRedim(array_, &bound))) throw std::bad_alloc();
    }

private:
    SAFEARRAY* array_ = nullptr;
};

// The elements of an array, locked while this object lives; empty for a null array, for one with
// another element type or more than one dimension.
template <class Element>
class ArrayView {
public:
    explicit ArrayView(SAFEARRAY* array) {
        VARTYPE type = VT_EMPTY;
        if (!array || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &type)) ||
            type != ArrayElement<Element>::Type)
            return;
        LONG lower = 0;
        LONG upper = -1;
        void* data = nullptr;
        if (FAILED(SafeArrayGetLBound(array, 1, &lower)) ||
            FAILED(SafeArrayGetUBound(array, 1, &upper)) || upper < lower ||
            FAILED(SafeArrayAccessData(array, &data)))
            return;
        array_ = array;
        elements_ = {static_cast<Element*>(data), static_cast<std::size_t>(upper - lower) + 1};
    }
    ArrayView(const ArrayView&) = delete;
    ArrayView& operator=(const ArrayView&) = delete;
    ~ArrayView() {
        if (array_) SafeArrayUnaccessData(array_);
    }

    std::span<Element> Elements() const { return elements_; }

private:
    SAFEARRAY* array_ = nullptr;
    std::span<Element> elements_;
};

}  // namespace mavrin2::automation
