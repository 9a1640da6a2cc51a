#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/automation.h"

namespace mavrin2::automation {

using OleString = std::basic_string<OLECHAR>;
using OleStringView = std::basic_string_view<OLECHAR>;

// UTF-8 inside, UTF-16 at the edge. Bytes that are not UTF-8, as names of files may have, survive
// the way there and back (platform/ole_text.h says how).
std::string ToUtf8(OleStringView text);
OleString ToOle(std::string_view utf8);

// UTF-8 for others to read, as in a file: what is not well formed becomes U+FFFD.
std::string ToWellFormedUtf8(OleStringView text);

std::filesystem::path ToPath(OleStringView text);
OleString ToOle(const std::filesystem::path& path);

// ASCII letters only: enough for member names, file extensions and program identifiers.
bool EqualIgnoringCase(std::string_view a, std::string_view b);
std::string AsciiLower(std::string_view text);

// An automation string, owned.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(OleStringView text);
    explicit Bstr(std::string_view utf8) : Bstr(OleStringView(ToOle(utf8))) {}
    // Takes over a string that the caller owns.
    static Bstr Adopt(BSTR text) {
        Bstr adopted;
        adopted.text_ = text;
        return adopted;
    }
    Bstr(Bstr&& other) noexcept : text_(other.Detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR Get() const { return text_; }
    BSTR* Put() {
        SysFreeString(Detach());
        return &text_;
    }
    [[nodiscard]] BSTR Detach() {
        BSTR text = text_;
        text_ = nullptr;
        return text;
    }
    OleStringView View() const { return View(text_); }
    std::string Utf8() const { return ToUtf8(View()); }

    // A null automation string is an empty one.
    static OleStringView View(BSTR text) {
        return text ? OleStringView(text, SysStringLen(text)) : OleStringView();
    }

private:
    BSTR text_ = nullptr;
};

// A copy for an out-parameter, owned by the caller. Throws std::bad_alloc.
inline BSTR NewBstr(OleStringView text) {
    return Bstr(text).Detach();
}
inline BSTR NewBstr(std::string_view utf8) {
    return Bstr(utf8).Detach();
}

}  // namespace mavrin2::automation
