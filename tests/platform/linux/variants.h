#pragma once

#include <ostream>
#include <string>

#include "platform/automation.h"

namespace mavrin2::tests {

// A variant that clears itself, made from a type and a field of that type.
class Value {
public:
    Value() = default;
    template <typename Field, typename Content>
    Value(VARTYPE type, Field VARIANT::*field, Content content) {
        raw_.vt = type;
        raw_.*field = static_cast<Field>(content);
    }
    explicit Value(const std::u16string& text) {
        raw_.vt = VT_BSTR;
        raw_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    Value(Value&& other) noexcept : raw_(other.raw_) { other.raw_ = {}; }
    ~Value() { VariantClear(&raw_); }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;

    VARIANT* operator&() { return &raw_; }
    VARIANT* operator->() { return &raw_; }
    std::u16string Text() const {
        return raw_.vt == VT_BSTR ? std::u16string(raw_.bstrVal, SysStringLen(raw_.bstrVal))
                                  : u"(no text)";
    }

private:
    VARIANT raw_ = {};
};

}  // namespace mavrin2::tests
