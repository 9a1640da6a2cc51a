#pragma once

#include <utility>

#include "platform/automation.h"

namespace mavrin2::automation {

// A variant that clears itself.
class Variant : public VARIANT {
public:
    Variant() { VariantInit(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    Variant(Variant&& other) noexcept {
        static_cast<VARIANT&>(*this) = other;
        VariantInit(&other);
    }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }
    ~Variant() { VariantClear(this); }

    static Variant Int32(LONG value) {
        Variant result;
        result.vt = VT_I4;
        result.lVal = value;
        return result;
    }
    static Variant Int16(SHORT value) {
        Variant result;
        result.vt = VT_I2;
        result.iVal = value;
        return result;
    }
};

}  // namespace mavrin2::automation
