#include "platform/windows/fonts.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <unordered_map>
#include <utility>

#include "platform/automation.h"
#include "platform/coverage.h"
#include "platform/font_cache.h"
#include "platform/windows/wide.h"

namespace mavrin2::platform {
namespace {

template <typename Object>
struct ObjectEnd {
    using pointer = Object;
    void operator()(Object object) const { ::DeleteObject(object); }
};
using FontHandle = std::unique_ptr<HFONT, ObjectEnd<HFONT>>;
using BitmapHandle = std::unique_ptr<HBITMAP, ObjectEnd<HBITMAP>>;

// A context in memory, with the font and the bitmap that are selected into it for good.
class Context {
public:
    explicit Context(FontHandle font)
        : font_(std::move(font)), handle_(::CreateCompatibleDC(nullptr)) {
        firstFont_ = ::SelectObject(handle_, font_.get());
        ::SetTextColor(handle_, RGB(255, 255, 255));
        ::SetBkMode(handle_, TRANSPARENT);
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() {
        Select({});
        ::SelectObject(handle_, firstFont_);
        ::DeleteDC(handle_);
    }

    HDC Get() const { return handle_; }

    // The pixels of the context, black; null when there is no memory. Valid until the next
    // call.
    const std::uint32_t* Clear(int width, int height) {
        if (width > width_ || height > height_) {
            BITMAPINFO format = {};
            format.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
            format.bmiHeader.biWidth = std::max(width, width_);
            format.bmiHeader.biHeight = -std::max(height, height_);  // rows from the top
            format.bmiHeader.biPlanes = 1;
            format.bmiHeader.biBitCount = 32;
            void* pixels = nullptr;
            BitmapHandle bitmap(
                ::CreateDIBSection(handle_, &format, DIB_RGB_COLORS, &pixels, nullptr, 0));
            if (!bitmap) return nullptr;
            Select(std::move(bitmap));
            pixels_ = static_cast<const std::uint32_t*>(pixels);
            width_ = format.bmiHeader.biWidth;
            height_ = -format.bmiHeader.biHeight;
        }
        ::PatBlt(handle_, 0, 0, width_, height_, BLACKNESS);
        return pixels_;
    }
    int Stride() const { return width_; }

private:
    void Select(BitmapHandle bitmap) {
        if (bitmap) {
            const HGDIOBJ before = ::SelectObject(handle_, bitmap.get());
            if (!bitmap_) firstBitmap_ = before;
        } else if (bitmap_) {
            ::SelectObject(handle_, firstBitmap_);
        }
        bitmap_ = std::move(bitmap);
    }

    FontHandle font_;
    BitmapHandle bitmap_;
    HDC handle_;
    HGDIOBJ firstFont_ = nullptr;
    HGDIOBJ firstBitmap_ = nullptr;
    const std::uint32_t* pixels_ = nullptr;
    int width_ = 0;
    int height_ = 0;
};

class GdiFont final : public Font {
public:
    GdiFont(FontHandle font, int em) : context_(std::move(font)), em_(em) {}

    TextExtent Measure(std::string_view text) const override {
        // The system gives no height to nothing.
        if (text.empty()) return {0, Measured(L" ").Height};
        return Measured(WideOf(std::string(text)));
    }

    void Draw(const Pixels& target, int x, int y, std::string_view text,
              std::uint32_t color) const override {
        if (!text.empty()) Blend(target, x, y, ShapeOf(std::string(text)), color);
    }

private:
    TextExtent Measured(const std::wstring& text) const {
        SIZE size = {};
        if (!::GetTextExtentPoint32W(context_.Get(), text.c_str(), static_cast<int>(text.size()),
                                     &size))
            return {};
        return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
    }

    // Whole lines rather than letters: the system may join letters to shapes of their own.
    const Coverage& ShapeOf(std::string text) const {
        const auto known = shapes_.find(text);
        if (known != shapes_.end()) return known->second;
        Coverage shape = Drawn(WideOf(text));
        // The labels of a scale, many times; a huge font starts again more often.
        constexpr std::size_t MostPixels = std::size_t{4} << 20;
        if (pixels_ > MostPixels) {
            shapes_.clear();
            pixels_ = 0;
        }
        pixels_ += shape.Values.size();
        return shapes_.emplace(std::move(text), std::move(shape)).first->second;
    }

    Coverage Drawn(const std::wstring& text) const {
        // Slanted letters lean out of their cells, by less than the letters are high.
        const TextExtent extent = Measured(text);
        Coverage shape{-em_, 0, extent.Width + 2 * em_, extent.Height, {}};
        const std::uint32_t* row = context_.Clear(shape.Width, shape.Height);
        if (row == nullptr) return {};
        ::TextOutW(context_.Get(), em_, 0, text.c_str(), static_cast<int>(text.size()));
        ::GdiFlush();
        shape.Values.reserve(static_cast<std::size_t>(shape.Width) * shape.Height);
        for (int y = 0; y < shape.Height; ++y, row += context_.Stride())
            std::transform(
                row, row + shape.Width, std::back_inserter(shape.Values),
                [](std::uint32_t pixel) { return static_cast<std::uint8_t>(pixel >> 8 & 0xFF); });
        return shape;
    }

    mutable Context context_;
    int em_;
    mutable std::unordered_map<std::string, Coverage> shapes_;
    mutable std::size_t pixels_ = 0;  // of all shapes
};

}  // namespace

std::shared_ptr<FontLoader> WindowsFonts() {
    return CachedFonts([](const FontDescription& wanted) {
        LOGFONTW record = {};
        record.lfHeight = -EmPixels(wanted);
        record.lfWeight = wanted.Weight;
        record.lfItalic = wanted.Italic;
        record.lfUnderline = wanted.Underline;
        record.lfStrikeOut = wanted.Strikethrough;
        record.lfCharSet = static_cast<BYTE>(wanted.CharacterSet);
        // Grey instead of coloured edges, which would not blend.
        record.lfQuality = ANTIALIASED_QUALITY;
        const std::wstring family = WideOf(wanted.Family);
        family.copy(record.lfFaceName, LF_FACESIZE - 1);
        return std::make_shared<GdiFont>(FontHandle(::CreateFontIndirectW(&record)),
                                         EmPixels(wanted));
    });
}

}  // namespace mavrin2::platform
