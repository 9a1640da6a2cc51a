#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "platform/linux/automation/functions.h"

namespace {

// The last four of these bytes are the length; the others keep the characters aligned.
constexpr std::size_t PrefixSize = 8;
// One character that ends the string, and a byte that completes an odd size.
constexpr std::size_t SuffixSize = sizeof(OLECHAR) + 1;
constexpr UINT LargestSize = std::numeric_limits<UINT>::max() - PrefixSize - SuffixSize;

BSTR AllocateBytes(const void* bytes, std::size_t size) {
    if (size > LargestSize) return nullptr;
    auto* const block = static_cast<std::byte*>(std::malloc(PrefixSize + size + SuffixSize));
    if (block == nullptr) return nullptr;
    const auto length = static_cast<std::uint32_t>(size);
    std::memcpy(block + PrefixSize - sizeof(length), &length, sizeof(length));
    std::byte* const start = block + PrefixSize;
    if (bytes != nullptr) std::memcpy(start, bytes, size);
    std::memset(start + size, 0, SuffixSize);
    return reinterpret_cast<BSTR>(start);
}

}  // namespace

BSTR SysAllocString(const OLECHAR* text) {
    if (text == nullptr) return nullptr;
    return AllocateBytes(text, std::char_traits<OLECHAR>::length(text) * sizeof(OLECHAR));
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) {
    return AllocateBytes(text, std::size_t{length} * sizeof(OLECHAR));
}

BSTR SysAllocStringByteLen(LPCSTR bytes, UINT size) {
    return AllocateBytes(bytes, size);
}

INT SysReAllocString(BSTR* string, const OLECHAR* text) {
    if (string == nullptr) return FALSE;
    BSTR fresh = SysAllocString(text);
    if (text != nullptr && fresh == nullptr) return FALSE;
    SysFreeString(*string);
    *string = fresh;
    return TRUE;
}

INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length) {
    if (string == nullptr) return FALSE;
    // The text may be a part of the old string, which therefore goes last.
    BSTR fresh = SysAllocStringLen(text, length);
    if (fresh == nullptr) return FALSE;
    if (text == nullptr && *string != nullptr) {
        const UINT kept = SysStringLen(*string) < length ? SysStringLen(*string) : length;
        std::memcpy(fresh, *string, kept * sizeof(OLECHAR));
    }
    SysFreeString(*string);
    *string = fresh;
    return TRUE;
}

void SysFreeString(BSTR string) {
    if (string != nullptr) std::free(reinterpret_cast<std::byte*>(string) - PrefixSize);
}

UINT SysStringLen(BSTR string) {
    return SysStringByteLen(string) / sizeof(OLECHAR);
}

UINT SysStringByteLen(BSTR string) {
    if (string == nullptr) return 0;
    std::uint32_t length = 0;
    std::memcpy(&length, reinterpret_cast<const std::byte*>(string) - sizeof(length),
                sizeof(length));
    return length;
}
